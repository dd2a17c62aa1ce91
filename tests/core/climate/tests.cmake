list(APPEND core_tests
  core/climate/basehiver_test.cpp
  core/climate/brouillemet_test.cpp
  core/climate/stations_test.cpp
)
