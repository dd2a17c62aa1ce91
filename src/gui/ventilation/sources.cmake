target_sources(thermique_gui PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/dialoguerendementechangeur.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dialoguerendementechangeur.h
  ${CMAKE_CURRENT_LIST_DIR}/dialogueventilation.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dialogueventilation.h
  ${CMAKE_CURRENT_LIST_DIR}/formulairesventilation.cpp
  ${CMAKE_CURRENT_LIST_DIR}/formulairesventilation.h
)
