#pragma once

#include <QString>
#include <QStringList>

namespace thermique {

// The application folder, where the reference data and the settings files live.
// It is resolved once at start and passed down; nothing builds paths from the current
// directory.
class DossierApplication
{
public:
    DossierApplication() = default;
    explicit DossierApplication(QString chemin);

    // From the command line option "--dossier PATH" (or "--dossier=PATH"), then the
    // environment variable THERMIQUE_DOSSIER, then "data" beside the executable.
    // The option is removed from `arguments` so that what remains is the program's own.
    static DossierApplication resoudre(QStringList &arguments, const QString &dossierExecutable);

    const QString &chemin() const { return m_chemin; }

    // A path below the folder, written the way the program names its files:
    // "\Météo\Paris.met" or "Couleur.txt"; "\" and "/" both separate.
    QString fichier(const QString &relatif) const;

private:
    QString m_chemin;
};

} // namespace thermique
