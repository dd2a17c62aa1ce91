#include "dossierapplication.h"

#include <QDir>

namespace thermique {

DossierApplication::DossierApplication(QString chemin)
    : m_chemin(QDir::cleanPath(std::move(chemin)))
{ }

DossierApplication DossierApplication::resoudre(QStringList &arguments,
                                                const QString &dossierExecutable)
{
    QString choisi;
    for (int i = 0; i < arguments.size(); ++i) {
        const QString &a = arguments.at(i);
        if (a == QLatin1String("--dossier") && i + 1 < arguments.size()) {
            choisi = arguments.at(i + 1);
            arguments.remove(i, 2);
            break;
        }
        if (a.startsWith(QLatin1String("--dossier="))) {
            choisi = a.mid(10);
            arguments.removeAt(i);
            break;
        }
    }
    if (choisi.isEmpty())
        choisi = qEnvironmentVariable("THERMIQUE_DOSSIER");
    if (choisi.isEmpty())
        choisi = QDir(dossierExecutable).filePath(QStringLiteral("data"));
    return DossierApplication(QDir(choisi).absolutePath());
}

QString DossierApplication::fichier(const QString &relatif) const
{
    QString r = relatif;
    r.replace(QLatin1Char('\\'), QLatin1Char('/'));
    while (r.startsWith(QLatin1Char('/')))
        r.remove(0, 1);
    return QDir(m_chemin).filePath(r);
}

} // namespace thermique
