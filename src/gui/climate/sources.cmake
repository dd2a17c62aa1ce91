target_sources(thermique_gui PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/dialoguedistancemer.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dialoguedistancemer.h
  ${CMAKE_CURRENT_LIST_DIR}/dialoguemeteo.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dialoguemeteo.h
  ${CMAKE_CURRENT_LIST_DIR}/dialoguemeteodonnees.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dialoguemeteodonnees.h
  ${CMAKE_CURRENT_LIST_DIR}/formulairesclimat.cpp
  ${CMAKE_CURRENT_LIST_DIR}/formulairesclimat.h
)
