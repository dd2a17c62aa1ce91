#pragma once

#include <QString>

namespace thermique {

class Classeur;

// What a sheet adds to the workbook's generic behaviour. The controller calls these hooks
// at fixed points; a sheet without its own rules keeps the defaults, which do nothing.
class Feuille
{
public:
    virtual ~Feuille() = default;

    // Builds the sheet in its grid for an empty study.
    virtual void construire(Classeur &) { }
    // Calculation run when the user enters the sheet by its tab.
    virtual void entrer(Classeur &) { }
    // Recalculation after a committed cell; the cell text is already written.
    virtual void apresValidation(Classeur &, int /*ligne*/, int /*colonne*/) { }
    // Left click on an input cell: a sheet may open a list there. True when it did.
    virtual bool clic(Classeur &, int /*ligne*/, int /*colonne*/) { return false; }
    // Right button on a cell: opens a list or a tool. Returns true when something opened.
    virtual bool clicDroit(Classeur &, int /*ligne*/, int /*colonne*/) { return false; }
    // A choice in the list opened by clicDroit.
    virtual void choixListe(Classeur &, int /*liste*/, int /*index*/) { }
    // Help text for the pointed cell; empty keeps the present text.
    virtual QString aide(const Classeur &, int /*ligne*/, int /*colonne*/) const { return {}; }
    // The picture shown beside the pointed row (path), or nothing.
    virtual QString image(const Classeur &, int /*ligne*/, int /*colonne*/) const { return {}; }
    // Recalculation of the results rows (heat-loss sheet).
    virtual void recalculerResultats(Classeur &) { }
    // Reapplies the look of the rows from their codes (before a save, after a load).
    virtual void miseEnForme(Classeur &) { }
    // Recalculation of the whole sheet after a line command.
    virtual void recalculerFeuille(Classeur &) { }
    // Fills a row that a line command just inserted (a wall or bridge line).
    virtual void remplirLigneInseree(Classeur &, int /*ligne*/) { }
    // Recalculation of one row after a line command or a propagation.
    virtual void recalculerLigne(Classeur &, int /*ligne*/) { }
    // A new room table at the given row (heat-loss sheet).
    virtual void nouveauTableau(Classeur &, int /*ligne*/) { }
};

} // namespace thermique
