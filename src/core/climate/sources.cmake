target_sources(thermique_core PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/arbremeteo.cpp
  ${CMAKE_CURRENT_LIST_DIR}/arbremeteo.h
  ${CMAKE_CURRENT_LIST_DIR}/basehiver.cpp
  ${CMAKE_CURRENT_LIST_DIR}/basehiver.h
  ${CMAKE_CURRENT_LIST_DIR}/brouillemet.cpp
  ${CMAKE_CURRENT_LIST_DIR}/brouillemet.h
  ${CMAKE_CURRENT_LIST_DIR}/choixsite.cpp
  ${CMAKE_CURRENT_LIST_DIR}/choixsite.h
  ${CMAKE_CURRENT_LIST_DIR}/commandemet.cpp
  ${CMAKE_CURRENT_LIST_DIR}/commandemet.h
  ${CMAKE_CURRENT_LIST_DIR}/fichiersclimat.cpp
  ${CMAKE_CURRENT_LIST_DIR}/fichiersclimat.h
  ${CMAKE_CURRENT_LIST_DIR}/meteodonnees.cpp
  ${CMAKE_CURRENT_LIST_DIR}/meteodonnees.h
  ${CMAKE_CURRENT_LIST_DIR}/stations.cpp
  ${CMAKE_CURRENT_LIST_DIR}/stations.h
)

# The town files are kept plain in data/sources/villes.tsv and scrambled here, into the
# data folder that the build lays beside the executables (after it has been copied).
add_executable(thermique_generer_meteo ${CMAKE_CURRENT_LIST_DIR}/generermeteo.cpp)
target_link_libraries(thermique_generer_meteo PRIVATE thermique_core)
set(thermique_meteo_table ${PROJECT_SOURCE_DIR}/data/sources/villes.tsv)
set(thermique_meteo_repere ${CMAKE_CURRENT_BINARY_DIR}/meteo_brouillee.repere)
add_custom_command(OUTPUT ${thermique_meteo_repere}
  COMMAND thermique_generer_meteo ${thermique_meteo_table} "${PROJECT_BINARY_DIR}/src/app/data/Météo"
  COMMAND ${CMAKE_COMMAND} -E touch ${thermique_meteo_repere}
  DEPENDS thermique_generer_meteo ${thermique_meteo_table}
  COMMENT "Fichiers météo brouillés"
  VERBATIM)
add_custom_target(meteo_brouillee ALL DEPENDS ${thermique_meteo_repere})
add_dependencies(meteo_brouillee thermique_data)
