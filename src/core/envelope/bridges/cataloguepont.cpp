#include "envelope/bridges/cataloguepont.h"

#include "workbook/nombres.h"
#include "workbook/records.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cmath>

namespace thermique {

namespace {

// A detail larger than this is a damaged file, not a table anyone typed.
constexpr int tailleMaximale = 50;
constexpr int profondeurMaximale = 8;

int entier(const QString &texte)
{
    const double v = Val(texte.trimmed());
    if (!std::isfinite(v) || v < 0)
        return 0;
    return int(std::min(v, double(tailleMaximale + 1)));
}

// A number typed in an input: the decimal comma of a French keyboard counts as a point.
std::optional<double> saisie(const QString &texte)
{
    QString t = texte.trimmed();
    if (t.isEmpty())
        return std::nullopt;
    t.replace(QLatin1Char(','), QLatin1Char('.'));
    return Val(t);
}

double nombre(const QString &cellule)
{
    QString t = cellule;
    t.replace(QLatin1Char(','), QLatin1Char('.'));
    return ValNombre(t);
}

QString formatPsi(double v)
{
    return Format(v, QStringLiteral("#0.00"));
}

} // namespace

QString TablePont::cellule(int r, int c) const
{
    if (r < 0 || c < 0 || r >= lignes || c >= colonnes)
        return {};
    const int i = r * colonnes + c;
    return i < cellules.size() ? cellules.at(i) : QString();
}

void TablePont::redimensionner(int lignesNouvelles, int colonnesNouvelles)
{
    QStringList nouvelles;
    for (int r = 0; r < lignesNouvelles; ++r)
        for (int c = 0; c < colonnesNouvelles; ++c)
            nouvelles << cellule(r, c);
    lignes = lignesNouvelles;
    colonnes = colonnesNouvelles;
    cellules = nouvelles;
}

QString TablePont::libelle() const
{
    return lignes > 0 && colonnes > 0 ? cellule(lignes - 1, colonnes - 1).trimmed() : QString();
}

int FichierPont::colonnes() const
{
    return std::min(entier(texte4[1]), tailleMaximale);
}

int FichierPont::lignes() const
{
    return std::min(entier(texte4[2]), tailleMaximale);
}

void FichierPont::appliquerForme()
{
    for (TablePont &t : tables)
        t.redimensionner(lignes(), colonnes());
}

std::optional<FichierPont> LireFichierPont(const QString &chemin)
{
    QFile f(chemin);
    if (!f.open(QIODevice::ReadOnly))
        return std::nullopt;
    RecordReader lecteur(f.readAll());
    FichierPont p;
    for (QString &t : p.texte1)
        t = lecteur.string();
    for (QString &t : p.texte3)
        t = lecteur.string();
    for (QString &t : p.texte4)
        t = lecteur.string();
    if (entier(p.texte4[1]) > tailleMaximale || entier(p.texte4[2]) > tailleMaximale)
        return std::nullopt;
    const int lignes = p.lignes();
    const int colonnes = p.colonnes();
    for (TablePont &t : p.tables) {
        t.lignes = lignes;
        t.colonnes = colonnes;
        for (int i = 0; i < lignes * colonnes; ++i)
            t.cellules << lecteur.string();
    }
    p.image = lecteur.string();
    return p;
}

bool EcrireFichierPont(const QString &chemin, const FichierPont &fichier)
{
    if (!QDir().mkpath(QFileInfo(chemin).absolutePath()))
        return false;
    RecordWriter w;
    for (const QString &t : fichier.texte1)
        w.stringRecord(t);
    for (const QString &t : fichier.texte3)
        w.stringRecord(t);
    for (const QString &t : fichier.texte4)
        w.stringRecord(t);
    for (const TablePont &t : fichier.tables)
        for (int r = 0; r < fichier.lignes(); ++r)
            for (int c = 0; c < fichier.colonnes(); ++c)
                w.stringRecord(t.cellule(r, c));
    w.stringRecord(fichier.image);
    return EcrireFichier(chemin, w.bytes());
}

bool ValeurUnique(const FichierPont &fichier)
{
    const TablePont &psi = fichier.tables[3];
    return psi.lignes == 1 && psi.colonnes == 1;
}

QString ChoisirValeur(const FichierPont &fichier, const QString &x1Texte, const QString &x2Texte,
                      const QString &)
{
    const TablePont &bandes = fichier.tables[1];
    const TablePont &axe2 = fichier.tables[2];
    const TablePont &psi = fichier.tables[3];
    if (ValeurUnique(fichier)) {
        const QString t = psi.cellule(0, 0).trimmed();
        return t.isEmpty() ? QString() : formatPsi(nombre(t));
    }

    // Band of the first axis: the first row whose test passes wins, so a bound shared by
    // two bands belongs to the band that closes with it.
    int r = 0;
    if (fichier.tables[0].libelle().isEmpty()) {
        r = 1; // no first axis: the only band
    } else {
        const auto x1 = saisie(x1Texte);
        if (!x1)
            return {};
        for (int i = 1; i < bandes.lignes; ++i) {
            if (bandes.cellule(i, 0).trimmed().isEmpty()
                && bandes.cellule(i, 2).trimmed().isEmpty())
                continue;
            const double a = nombre(bandes.cellule(i, 0));
            const double b = nombre(bandes.cellule(i, 2));
            const double x = *x1;
            if ((x == a && x < b) || (x == b && x > a) || (x > a && x < b) || (x == a && a == b)) {
                r = i;
                if (a * b == 0)
                    return QStringLiteral("Faux");
                break;
            }
        }
        if (r == 0)
            return {};
    }

    // Abscissa on the second axis.
    // On a one-row axis the last cell is the label, not a value.
    QVector<double> valeurs;
    const int nValeurs = axe2.lignes == 1 ? axe2.colonnes - 1 : axe2.colonnes;
    for (int c = 0; c < nValeurs; ++c) {
        const QString t = axe2.cellule(0, c).trimmed();
        if (t.isEmpty())
            break;
        valeurs << nombre(t);
    }
    int c1 = 0, c2 = 0;
    double v1 = 0, v2 = 0, x2 = 0;
    if (axe2.libelle().isEmpty() || valeurs.isEmpty()) {
        v1 = v2 = 1; // no second axis: the first column
    } else {
        const auto x = saisie(x2Texte);
        if (!x)
            return {};
        x2 = *x;
        const int exact = int(valeurs.indexOf(x2));
        if (exact >= 0) {
            c1 = c2 = exact;
        } else {
            bool trouve = false;
            for (int j = 0; j + 1 < valeurs.size() && !trouve; ++j) {
                const double lo = std::min(valeurs[j], valeurs[j + 1]);
                const double hi = std::max(valeurs[j], valeurs[j + 1]);
                if (x2 > lo && x2 < hi) {
                    c1 = j;
                    c2 = j + 1;
                    trouve = true;
                }
            }
            if (!trouve) {
                // Beyond the list, its nearer end stands for both neighbours.
                const int fin = int(valeurs.size()) - 1;
                c1 = c2 = std::abs(x2 - valeurs.first()) <= std::abs(x2 - valeurs[fin]) ? 0 : fin;
            }
        }
        v1 = valeurs[c1];
        v2 = valeurs[c2];
    }
    if (v1 * v2 == 0)
        return QStringLiteral("Faux");

    const double p1 = nombre(psi.cellule(r - 1, c1));
    const double p2 = nombre(psi.cellule(r - 1, c2));
    if (p1 == p2 || v1 == v2)
        return formatPsi(p1);
    return formatPsi((p2 - p1) / (v2 - v1) * (x2 - v1) + p1);
}

namespace {

DossierPonts scanner(const QString &chemin, const QString &nom, int profondeur)
{
    DossierPonts d;
    d.nom = nom;
    if (profondeur > profondeurMaximale)
        return d;
    const QDir dir(chemin);
    const QFileInfoList entrees = dir.entryInfoList(QDir::Dirs | QDir::Files | QDir::NoDotAndDotDot,
                                                    QDir::Name | QDir::IgnoreCase);
    for (const QFileInfo &e : entrees) {
        const QString n = e.fileName();
        if (n.startsWith(QLatin1Char('.')))
            continue;
        if (n.endsWith(QLatin1String(".txt"), Qt::CaseInsensitive) && e.isFile())
            d.fichiers << n.left(n.size() - 4);
        else // anything else shows as a folder, empty when it is a file
            d.dossiers << scanner(e.absoluteFilePath(), n, profondeur + 1);
    }
    return d;
}

} // namespace

DossierPonts ScannerPonts(const QString &dossierPonts)
{
    return scanner(dossierPonts, QFileInfo(dossierPonts).fileName(), 0);
}

QString NomPont(const FichierPont &fichier, const QString &nomFichier)
{
    QString image = fichier.image.trimmed();
    if (image.endsWith(QLatin1String(".bmp"), Qt::CaseInsensitive))
        image.chop(4);
    if (image.isEmpty())
        return nomFichier;
    return image + QStringLiteral(" : ") + nomFichier;
}

QString ImageDuNom(const QString &nom)
{
    const qsizetype i = nom.indexOf(QLatin1String(" :"));
    if (i <= 0)
        return {};
    return nom.left(i).trimmed() + QStringLiteral(".bmp");
}

} // namespace thermique
