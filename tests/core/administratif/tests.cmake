list(APPEND core_tests
  core/administratif/feuilleadministrative_test.cpp
)
