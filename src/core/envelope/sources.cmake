# Envelope coefficients: the Coef-U sheet, the wall library and its calculators.
target_sources(thermique_core PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/coefu/calculsparois.cpp
  ${CMAKE_CURRENT_LIST_DIR}/coefu/calculsparois.h
  ${CMAKE_CURRENT_LIST_DIR}/coefu/editeurparois.cpp
  ${CMAKE_CURRENT_LIST_DIR}/coefu/editeurparois.h
  ${CMAKE_CURRENT_LIST_DIR}/coefu/feuillecoefu.cpp
  ${CMAKE_CURRENT_LIST_DIR}/coefu/feuillecoefu.h
  ${CMAKE_CURRENT_LIST_DIR}/library/bibliotheque.cpp
  ${CMAKE_CURRENT_LIST_DIR}/library/bibliotheque.h
  ${CMAKE_CURRENT_LIST_DIR}/library/calculateurs.cpp
  ${CMAKE_CURRENT_LIST_DIR}/library/calculateurs.h
  ${CMAKE_CURRENT_LIST_DIR}/library/composants.cpp
  ${CMAKE_CURRENT_LIST_DIR}/library/composants.h
  ${CMAKE_CURRENT_LIST_DIR}/bridges/cataloguepont.cpp
  ${CMAKE_CURRENT_LIST_DIR}/bridges/cataloguepont.h
  ${CMAKE_CURRENT_LIST_DIR}/bridges/feuillepontsthermiques.cpp
  ${CMAKE_CURRENT_LIST_DIR}/bridges/feuillepontsthermiques.h
  ${CMAKE_CURRENT_LIST_DIR}/windows/calculfenetre.cpp
  ${CMAKE_CURRENT_LIST_DIR}/windows/calculfenetre.h
  ${CMAKE_CURRENT_LIST_DIR}/windows/cataloguesfenetres.cpp
  ${CMAKE_CURRENT_LIST_DIR}/windows/cataloguesfenetres.h
)
