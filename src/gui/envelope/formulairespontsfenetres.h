#pragma once

#include "workbook/formulaires.h"

namespace thermique::gui {

// Registers the bridge and joinery dialogs: "Frm_PontsThermiques", "frm_Ponts_Thermiques",
// "Frm_FenêtresSaisies", "Frm_UVitrages", "Frm_UVitrages_1", "Frm_FenêtresDonnées" (whose
// albedo button offers the choices of Frm_Albedo).
void InstallerFormulairesPontsFenetres(Formulaires &formulaires);

bool OuvrirPontsThermiques(Classeur &classeur, QWidget *parent);
bool OuvrirEvaluationPonts(Classeur &classeur, QWidget *parent);
bool OuvrirFenetresSaisies(Classeur &classeur, QWidget *parent);
bool OuvrirUVitrages(Classeur &classeur, QWidget *parent);
bool OuvrirUVitrages1(Classeur &classeur, QWidget *parent);
bool OuvrirFenetresDonnees(Classeur &classeur, QWidget *parent);

} // namespace thermique::gui
