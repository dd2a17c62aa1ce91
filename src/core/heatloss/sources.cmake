target_sources(thermique_core PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/calcullocal.cpp
  ${CMAKE_CURRENT_LIST_DIR}/calcullocal.h
  ${CMAKE_CURRENT_LIST_DIR}/calculspertes.cpp
  ${CMAKE_CURRENT_LIST_DIR}/calculspertes.h
  ${CMAKE_CURRENT_LIST_DIR}/feuillepertes.cpp
  ${CMAKE_CURRENT_LIST_DIR}/feuillepertes.h
  ${CMAKE_CURRENT_LIST_DIR}/tableaupertes.cpp
  ${CMAKE_CURRENT_LIST_DIR}/tableaupertes.h
  ${CMAKE_CURRENT_LIST_DIR}/ubat.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ubat.h
)
