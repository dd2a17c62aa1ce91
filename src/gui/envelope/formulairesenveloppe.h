#pragma once

#include "workbook/formulaires.h"

namespace thermique {
struct ContexteParois;
}

namespace thermique::gui {

// Registers the envelope dialogs: "frm_Composants", "Frm_Coefficient_U_Calcul",
// "Frm_RésistanceSuperficielle", "Frm_LameAirRésistance", "Frm_EmissivitéCorpsGris".
void InstallerFormulairesEnveloppe(Formulaires &formulaires);

// The same dialogs on any grid of the Coef-U form (the sheet or the wall library), on the
// given row. They return true when they changed the grid.
bool OuvrirComposants(ContexteParois &ctx, int ligne, const QString &dossierComposants,
                      QWidget *parent);
bool OuvrirLameAir(ContexteParois &ctx, int ligne, QWidget *parent);
bool OuvrirResistanceSuperficielle(ContexteParois &ctx, int ligne, QWidget *parent);
void OuvrirEmissivite(QWidget *parent);

} // namespace thermique::gui
