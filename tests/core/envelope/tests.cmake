list(APPEND core_tests
  core/envelope/bibliotheque_test.cpp
  core/envelope/bibliothequedonnees_test.cpp
  core/envelope/calculsparois_test.cpp
  core/envelope/feuillecoefu_test.cpp
)
list(APPEND core_tests
  core/envelope/cataloguepont_test.cpp
  core/envelope/fenetre_test.cpp
  core/envelope/feuillepontsfenetres_test.cpp
)
