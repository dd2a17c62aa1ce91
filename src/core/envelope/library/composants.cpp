#include "envelope/library/composants.h"

#include "envelope/coefu/editeurparois.h"
#include "workbook/nombres.h"
#include "workbook/records.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace thermique {

const QStringList &LibellesComposant()
{
    static const QStringList libelles = {
        QStringLiteral("Références : "),
        QStringLiteral("Masse volumique sèche (kg/m³) : "),
        QStringLiteral("Conductibilité thermique utile (W/(m.K) : "),
        QStringLiteral("Capacité thermique (J/(kg.K) : "),
        QStringLiteral("Facteur de résistance à la diffusion de vapeur d'eau (sec) : "),
        QStringLiteral("Facteur de résistance à la diffusion de vapeur d'eau (humide) : "),
        QStringLiteral("Commentaire : "),
    };
    return libelles;
}

namespace {

// The field of line i of the file.
QString *champ(Composant &c, int i)
{
    QString *const champs[] = {&c.references, &c.masseVolumique, &c.conductivite, &c.capacite,
                               &c.muSec,      &c.muHumide,       &c.commentaire};
    return champs[std::clamp(i, 0, 6)];
}

} // namespace

std::optional<Composant> LireComposant(const QString &chemin)
{
    bool ouvert = false;
    // A component is a few lines: a huge file is not one, read only its start.
    RecordReader lecteur(LireFichier(chemin, 1 << 16, &ouvert));
    if (!ouvert)
        return std::nullopt;
    Composant c;
    const QStringList &libelles = LibellesComposant();
    for (int i = 0; i < libelles.size(); ++i) {
        const auto ligne = lecteur.readString();
        if (!ligne)
            break;
        QString valeur = *ligne;
        if (valeur.startsWith(libelles[i]))
            valeur = valeur.mid(libelles[i].size());
        else if (valeur.startsWith(libelles[i].trimmed()))
            valeur = valeur.mid(libelles[i].trimmed().size());
        *champ(c, i) = valeur.trimmed();
    }
    return c;
}

bool EcrireComposant(const QString &chemin, const Composant &composant)
{
    if (!QDir().mkpath(QFileInfo(chemin).absolutePath()))
        return false;
    RecordWriter w;
    Composant c = composant;
    const QStringList &libelles = LibellesComposant();
    for (int i = 0; i < libelles.size(); ++i) {
        // A double quote would end the record early: it cannot stand in a field.
        QString valeur = *champ(c, i);
        valeur.replace(QLatin1Char('"'), QLatin1Char('\''));
        w.stringRecord(libelles[i] + valeur);
    }
    return EcrireFichier(chemin, w.bytes());
}

namespace {

QStringList entrees(const QString &dossier, QDir::Filters filtre)
{
    QStringList noms;
    const QDir d(dossier);
    for (const QString &n :
         d.entryList(filtre | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase)) {
        if (n.startsWith(QLatin1Char('.')))
            continue;
        if (filtre & QDir::Files) {
            if (!n.endsWith(QLatin1String(".txt"), Qt::CaseInsensitive))
                continue;
            noms << n.left(n.size() - 4);
        } else {
            noms << n;
        }
    }
    return noms;
}

} // namespace

QVector<CategorieComposants> ScannerComposants(const QString &dossierComposants)
{
    QVector<CategorieComposants> categories;
    for (const QString &c : entrees(dossierComposants, QDir::Dirs)) {
        CategorieComposants categorie {c, {}};
        const QString dossierCategorie = dossierComposants + QLatin1Char('/') + c;
        for (const QString &v : entrees(dossierCategorie, QDir::Dirs))
            categorie.varietes.append(
                {v, entrees(dossierCategorie + QLatin1Char('/') + v, QDir::Files)});
        categories.append(categorie);
    }
    return categories;
}

QString CheminComposant(const QString &dossierComposants, const QString &categorie,
                        const QString &variete, const QString &composant)
{
    return dossierComposants + QLatin1Char('/') + categorie + QLatin1Char('/') + variete
        + QLatin1Char('/') + composant + QStringLiteral(".txt");
}

bool EstLameAir(const QString &nom)
{
    return nom.trimmed().startsWith(QStringLiteral("Lame d'air"), Qt::CaseInsensitive);
}

void AppliquerComposant(ContexteParois &ctx, int ligne, const QString &nom,
                        const Composant &composant)
{
    namespace C = ColonneParoi;
    Grid &g = ctx.grille;
    if (!g.contient(ligne, C::Cache))
        return;
    g.setText(ligne, C::Libelle, nom);
    const QString lambda = composant.conductivite.trimmed();
    g.setText(ligne, C::Conductivite,
              lambda.isEmpty() ? QString() : Format(ValNombre(lambda), QStringLiteral("##0.000")));
    // A value chosen from the library replaces what was typed.
    g.setOperation(ligne, C::Conductivite, QString());
    const QString sep = QStringLiteral("£");
    g.setText(ligne, C::Cache,
              composant.masseVolumique.trimmed() + sep + composant.capacite.trimmed() + sep
                  + composant.muSec.trimmed() + sep);
    CalculU(ctx, ligne);
}

} // namespace thermique
