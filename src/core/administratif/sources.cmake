target_sources(thermique_core PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/aideadministrative.cpp
  ${CMAKE_CURRENT_LIST_DIR}/aideadministrative.h
  ${CMAKE_CURRENT_LIST_DIR}/feuilleadministrative.cpp
  ${CMAKE_CURRENT_LIST_DIR}/feuilleadministrative.h
  ${CMAKE_CURRENT_LIST_DIR}/identite.cpp
  ${CMAKE_CURRENT_LIST_DIR}/identite.h
)
