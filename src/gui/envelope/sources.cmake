# Envelope dialogs: materials, wall library, surface and air-layer resistances.
target_sources(thermique_gui PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/dialoguebibliotheque.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dialoguescalculateurs.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dialoguecomposants.cpp
  ${CMAKE_CURRENT_LIST_DIR}/formulairesenveloppe.cpp
  ${CMAKE_CURRENT_LIST_DIR}/formulairesenveloppe.h
  ${CMAKE_CURRENT_LIST_DIR}/dialoguepontsthermiques.cpp
  ${CMAKE_CURRENT_LIST_DIR}/dialoguesfenetres.cpp
  ${CMAKE_CURRENT_LIST_DIR}/formulairespontsfenetres.h
)
