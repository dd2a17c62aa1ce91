list(APPEND core_tests
  core/heatloss/calculspertes_test.cpp
  core/heatloss/feuillepertes_test.cpp
  core/heatloss/ubat_test.cpp
)
