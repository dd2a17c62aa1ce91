#include "tablesventilation.h"

#include "workbook/dossierapplication.h"
#include "workbook/records.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace thermique {

namespace {

QStringList nomsSansExtension(const QString &dossier, const QString &filtre)
{
    QStringList noms;
    const QDir d(dossier);
    for (const QFileInfo &f : d.entryInfoList({filtre}, QDir::Files, QDir::Name))
        noms << f.completeBaseName();
    return noms;
}

QByteArray lire(const QString &chemin)
{
    return LireFichier(chemin);
}

} // namespace

QStringList OngletsVentilation(const DossierApplication &dossier)
{
    return nomsSansExtension(dossier.fichier(QStringLiteral("Ventilation")),
                             QStringLiteral("*.dir"));
}

QStringList TablesVentilation(const DossierApplication &dossier, const QString &onglet)
{
    if (onglet.isEmpty())
        return {};
    return nomsSansExtension(dossier.fichier(QStringLiteral("Ventilation\\") + onglet),
                             QStringLiteral("*.txt"));
}

QVector<QStringList> LireTableVentilation(const QByteArray &octets)
{
    QVector<QStringList> lignes;
    QString texte = DecoderWindows1252(octets);
    texte.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    texte.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    for (const QString &ligne : texte.split(QLatin1Char('\n'))) {
        if (ligne.trimmed().isEmpty())
            continue;
        QStringList champs = ligne.split(QLatin1Char('\t'));
        while (champs.size() < ColonnesTableVentilation)
            champs << QString();
        lignes << champs.mid(0, ColonnesTableVentilation);
    }
    return lignes;
}

QVector<QStringList> LireTableVentilation(const DossierApplication &dossier, const QString &onglet,
                                          const QString &table)
{
    if (onglet.isEmpty() || table.isEmpty())
        return {};
    return LireTableVentilation(
        lire(dossier.fichier(QStringLiteral("Ventilation\\") + onglet + QLatin1Char('\\') + table
                             + QStringLiteral(".txt"))));
}

QVector<QStringList> EntetesVentilation(const QString &onglet)
{
    if (onglet == QLatin1String("Logements"))
        return {{QStringLiteral("T y p e   d e   l o g e m e n t"), QStringLiteral("Mini"),
                 QStringLiteral("Maxi"), QStringLiteral("Débits mini."), QString(), QString()},
                {QString(), QString(), QString(), QStringLiteral("Tot. logt / Cuis."), QString(),
                 QString()}};
    return {{QStringLiteral("T y p e   d e   l o c a l"), QStringLiteral("/pers."),
             QStringLiteral("/m²"), QStringLiteral("/local"), QString(), QString()}};
}

PositionsVentilation LirePositionsVentilation(const DossierApplication &dossier)
{
    RecordReader r(lire(dossier.fichier(QStringLiteral("Ventilation.ini"))));
    PositionsVentilation p;
    p.onglet = int(r.readInteger(0, 1000).value_or(0));
    p.table = int(r.readInteger(0, 1000).value_or(0));
    return p;
}

bool EcrirePositionsVentilation(const DossierApplication &dossier,
                                const PositionsVentilation &positions)
{
    RecordWriter w;
    w.integerRecord(positions.onglet);
    w.integerRecord(positions.table);
    return EcrireFichier(dossier.fichier(QStringLiteral("Ventilation.ini")), w.bytes());
}

} // namespace thermique
