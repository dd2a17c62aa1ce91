#pragma once

#include <QByteArray>
#include <QString>

namespace thermique {

// Writes the scrambled town files "<Région>/<Département>/<Ville>.met" under `dossier`
// from the plain table of the towns (UTF-8, TAB-separated, a heading line, then region,
// department, department number, town, INSEE code, postal code, latitude, longitude,
// altitude, gas level). The folder is emptied first. Returns the number of files written,
// or an error message in `erreur` and -1.
int GenererArbreMeteo(const QByteArray &tableUtf8, const QString &dossier, QString &erreur);

} // namespace thermique
