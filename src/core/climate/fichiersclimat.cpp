#include "fichiersclimat.h"

#include "workbook/dossierapplication.h"
#include "workbook/nombres.h"
#include "workbook/records.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>

namespace thermique {

namespace {
constexpr qint64 tailleMaximale = 16 << 20;
} // namespace

QByteArray LireFichierDonnees(const QString &chemin)
{
    QFile f(chemin);
    if (!f.open(QIODevice::ReadOnly))
        return {};
    return f.read(tailleMaximale);
}

QStringList LignesTexte(const QByteArray &octetsWindows1252)
{
    QString texte = DecoderWindows1252(octetsWindows1252);
    texte.remove(QLatin1Char('\r'));
    QStringList lignes = texte.split(QLatin1Char('\n'));
    if (!lignes.isEmpty() && lignes.last().isEmpty())
        lignes.removeLast();
    return lignes;
}

int FicheVille::departement() const
{
    return int(Val(codePostal.left(2)));
}

FicheVille LireFicheVille(const QByteArray &octetsWindows1252)
{
    const QStringList lignes = LignesTexte(octetsWindows1252);
    FicheVille fiche;
    if (lignes.isEmpty())
        return fiche;
    const QString &ligne = lignes.first();
    const QStringList champs = ligne.split(QLatin1Char('\t'));
    fiche.nom = champs.value(0);
    if (champs.size() < 2)
        return fiche;
    fiche.codePostal = champs.value(2);
    fiche.latitude = champs.value(4);
    fiche.longitude = champs.value(5);
    fiche.altitude = champs.value(6);
    fiche.niveauGaz = champs.last();
    return fiche;
}

QByteArray EcrireFicheVille(const QStringList &champs)
{
    return EncoderWindows1252(champs.join(QLatin1Char('\t')) + QStringLiteral("\r\n"));
}

QVector<RegionGeographique> LireGeographie(const QByteArray &octetsWindows1252)
{
    QVector<RegionGeographique> regions;
    RecordReader lecteur(octetsWindows1252);
    while (!lecteur.atEnd()) {
        const auto valeur = lecteur.readString();
        if (!valeur)
            break;
        const QString nom = valeur->mid(6).trimmed();
        if (valeur->left(3) == QStringLiteral("Rég"))
            regions.append({nom, {}});
        else if (!regions.isEmpty() && !nom.isEmpty())
            regions.last().departements.append(nom);
    }
    return regions;
}

QString LireChoixMeteo(const DossierApplication &dossier)
{
    RecordReader lecteur(LireFichierDonnees(dossier.fichier(QStringLiteral("Fichiers Météo.txt"))));
    return lecteur.readString().value_or(QString()).trimmed();
}

bool EcrireChoixMeteo(const DossierApplication &dossier, const QString &choix)
{
    RecordWriter w;
    w.stringRecord(choix);
    return EcrireFichier(dossier.fichier(QStringLiteral("Fichiers Météo.txt")), w.bytes());
}

QString DepartementDuChoix(const QString &choix)
{
    const qsizetype i = choix.indexOf(QLatin1Char('\\'));
    return i < 0 ? QString() : choix.mid(i + 1);
}

QStringList ListerVilles(const DossierApplication &dossier, const QString &choix)
{
    QStringList villes;
    if (choix.trimmed().isEmpty())
        return villes;
    const QDir d(dossier.fichier(QStringLiteral("Météo\\") + choix));
    for (const QString &f : d.entryList({QStringLiteral("*.met")}, QDir::Files, QDir::Name))
        villes << f.left(f.size() - 4);
    return villes;
}

std::optional<ClimatDepartement> ChercherDepartement(const QByteArray &octetsWindows1252,
                                                     int departement)
{
    const QStringList lignes = LignesTexte(octetsWindows1252);
    std::optional<ClimatDepartement> trouve;
    for (qsizetype i = 1; i < lignes.size(); ++i) {
        const QStringList champs = lignes.at(i).split(QLatin1Char('\t'));
        if (champs.value(0).trimmed().isEmpty() || int(Val(champs.value(0).left(2))) != departement)
            continue;
        ClimatDepartement c;
        c.zoneEte = champs.value(4).trimmed();
        c.zoneHiver = champs.value(5).trimmed();
        c.temperatureEte = champs.value(7).trimmed();
        c.temperatureHiver = champs.value(8).trimmed();
        c.humidite = champs.value(9).trimmed();
        // The duration takes the rest of the line.
        c.dureeChauffage = champs.mid(10).join(QLatin1Char('\t')).trimmed();
        trouve = c;
    }
    return trouve;
}

} // namespace thermique
