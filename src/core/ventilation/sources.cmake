target_sources(thermique_core PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/calculventilation.cpp
  ${CMAKE_CURRENT_LIST_DIR}/calculventilation.h
  ${CMAKE_CURRENT_LIST_DIR}/feuilleventilation.cpp
  ${CMAKE_CURRENT_LIST_DIR}/feuilleventilation.h
  ${CMAKE_CURRENT_LIST_DIR}/rendementechangeur.cpp
  ${CMAKE_CURRENT_LIST_DIR}/rendementechangeur.h
  ${CMAKE_CURRENT_LIST_DIR}/tablesventilation.cpp
  ${CMAKE_CURRENT_LIST_DIR}/tablesventilation.h
)
