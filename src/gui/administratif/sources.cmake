target_sources(thermique_gui PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/dialogueidentite.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dialogueidentite.h
  ${CMAKE_CURRENT_LIST_DIR}/dialoguelistepieces.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dialoguelistepieces.h
  ${CMAKE_CURRENT_LIST_DIR}/formulairesadministratif.cpp
  ${CMAKE_CURRENT_LIST_DIR}/formulairesadministratif.h
)
