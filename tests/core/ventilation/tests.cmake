list(APPEND core_tests
  core/ventilation/calculventilation_test.cpp
  core/ventilation/feuilleventilation_test.cpp
  core/ventilation/tablesventilation_test.cpp
)
