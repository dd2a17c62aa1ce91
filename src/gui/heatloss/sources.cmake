target_sources(thermique_gui PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/dialoguespertes.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dialoguespertes.h
  ${CMAKE_CURRENT_LIST_DIR}/formulairespertes.cpp
  ${CMAKE_CURRENT_LIST_DIR}/formulairespertes.h
)
