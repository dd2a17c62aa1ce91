#pragma once

#include <QString>

#include <array>

// The user's identity on the cover of every study, the page footer and the logo, and the
// list of room names offered on the heat-loss sheet.
namespace thermique {

class Classeur;
class DossierApplication;

struct Identite
{
    // Nom, Adresse, Ville, Téléphone, Fax, Courriel.
    std::array<QString, 6> champs;
    QString piedDePage;

    // No character but blanks in the six fields: the study cannot start so.
    bool vide() const;
    // The six fields, one a line (CR LF), as the cover shows them.
    QString texte() const;
};

// "Identité.txt" (six strings) and "TextePiedDePage.txt" (one); missing values are empty.
Identite LireIdentite(const DossierApplication &dossier);

// The identity form's OK: nothing when the six fields are blank (returns false). Otherwise
// both files are written and the identity replaces the logo on the cover.
bool ValiderIdentite(Classeur &classeur, const Identite &identite);

// The identity form's "Logo" button: the user picks a picture, which is copied to
// "Logo\Logo.jpg" and stands in the identity cell. False when the user cancelled or the
// copy failed.
bool ChoisirLogo(Classeur &classeur);

// "ListePièces.txt": one room name a record. The text is the names joined by CR LF.
QString LireListePieces(const DossierApplication &dossier);
bool EcrireListePieces(const DossierApplication &dossier, const QString &texte);

} // namespace thermique
