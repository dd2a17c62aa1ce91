list(APPEND core_tests
  core/envelope/bibliotheque_test.cpp
  core/envelope/bibliothequedonnees_test.cpp
  core/envelope/calculsparois_test.cpp
  core/envelope/feuillecoefu_test.cpp
)
