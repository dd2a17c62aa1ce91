#include "ubat.h"

#include "workbook/classeur.h"
#include "workbook/nombres.h"

#include <QVector>

#include <algorithm>
#include <array>

namespace thermique {

namespace {

constexpr int Colonnes = 30;
const QString codeParoi = QStringLiteral("TableauLigneCalculParoi");
const QString codePont = QStringLiteral("TableauLigneCalculPontThermique");
const QString codeResultats = QStringLiteral("TableauLigneRésultats");
const QString codeTete = QStringLiteral("TableauLigne1");
const QString formatPertes = QStringLiteral("###,##0.00");

// One envelope line: the cells it will show, and whether it is a bridge (a bridge's
// length may be blank, so the cells alone do not tell).
struct Ligne : std::array<QString, Colonnes>
{
    bool pont = false;
};

double nombre(const QString &t)
{
    return Val(QString(t).remove(SeparateurMilliers).remove(QLatin1Char(',')));
}

bool estMenuiserie(const QString &code)
{
    return code.startsWith(QLatin1String("A6")) || code.startsWith(QLatin1String("A7"));
}

bool estPont(const Ligne &l)
{
    return l.pont;
}

// 1. One line per wall or bridge row of the heat-loss sheet. A wall takes columns 6 to 15
// into 5 to 14 and leaves the length blank; a bridge's values stand one column further
// right, so its length goes to 15 and its surface stays blank.
QVector<Ligne> rassembler(const Grid &pertes)
{
    QVector<Ligne> lignes;
    for (int r = 0; r < pertes.rows(); ++r) {
        const QString code = pertes.text(r, 0);
        if (code != codeParoi && code != codePont)
            continue;
        Ligne l;
        l.pont = code == codePont;
        for (int c = 5; c <= 13; ++c)
            l[c] = pertes.text(r, c + 1).trimmed();
        if (code == codePont)
            l[15] = pertes.text(r, 15).trimmed();
        else
            l[14] = pertes.text(r, 15).trimmed();
        l[16] = pertes.text(r, 17).trimmed();
        l[20] = pertes.text(r, 20).trimmed();
        lignes << l;
    }
    return lignes;
}

QString cleFusion(const Ligne &l)
{
    QString cle;
    for (int c = 5; c <= 13; ++c)
        cle += l[c];
    cle += l[15] + l[16];
    return cle.remove(QLatin1Char(' '));
}

// 2. The same line in two rooms is one line of the envelope with the sum of the surfaces.
QVector<Ligne> fusionner(const QVector<Ligne> &lignes)
{
    QVector<Ligne> distinctes;
    QVector<QString> cles;
    for (const Ligne &l : lignes) {
        const QString cle = cleFusion(l);
        const qsizetype i = cles.indexOf(cle);
        if (i < 0) {
            cles << cle;
            distinctes << l;
            continue;
        }
        Ligne &premiere = distinctes[i];
        premiere[14] = Format(nombre(premiere[14]) + nombre(l[14]), QStringLiteral("##,##0.00"));
    }
    return distinctes;
}

// 3. Sorted as the items "code, cells 5 to 21, §" of a sorted list.
void trier(QVector<Ligne> &lignes)
{
    auto article = [](const Ligne &l) {
        QString t = l[8];
        for (int c = 5; c <= 21; ++c)
            t += l[c];
        return t + QStringLiteral("§");
    };
    std::stable_sort(lignes.begin(), lignes.end(), [&](const Ligne &a, const Ligne &b) {
        return QString::compare(article(a), article(b), Qt::CaseInsensitive) < 0;
    });
}

// The overall dimensions of a joinery block of the Coef-U sheet, from its
// "Surface de menuiserie" row: "(hors tout : L " ... " x H " ...
bool dimensionsMenuiserie(const Grid &parois, const QString &cle, double &l, double &h)
{
    int r = 0;
    while (r < parois.rows() && parois.text(r, 0).trimmed() != cle)
        ++r;
    for (; r < parois.rows(); ++r) {
        const QString t = parois.text(r, 6);
        if (!t.startsWith(QStringLiteral("Surface de menuiserie")))
            continue;
        const qsizetype pl = t.indexOf(QStringLiteral("(hors tout : L "));
        const qsizetype ph = t.indexOf(QStringLiteral(" x H "));
        if (pl < 0 || ph < 0)
            return false;
        l = Val(t.mid(pl + 15));
        h = Val(t.mid(ph + 5));
        return l > 0 && h > 0;
    }
    return false;
}

void ecrireEntetes(Grid &g)
{
    struct Entete
    {
        int colonne;
        const char *texte;
    };
    static constexpr Entete entetes[] = {
        {5, "Paroi"},
        {6, "Incli."},
        {7, "Azi."},
        {8, "Code"},
        {9, "m"},
        {10, "F"},
        {11, "U jour\r\nW/(m².K)"},
        {12, "U nuit\r\nW/(m².K)"},
        {13, "U liné.\r\nW/(m².K)"},
        {14, "Sur. Nette\r\n(m²)"},
        {15, "Long.\r\n(m)"},
        {16, "Coef b"},
        {17, "Pertes\r\nJour(W/K)"},
        {18, "Pertes\r\nNuit(W/K)"},
        {19, "Sur. Brute\r\n(m²)"},
        {20, "Code réf\r\nW/(m².K)"},
        {21, "Pertes réf\r\n(W/m².K)"},
        {22, "Pertes réf\r\n(W/m².K)"},
    };
    for (int c = 0; c <= 5; ++c)
        g.setText(2, c, QStringLiteral("Paroi"));
    for (const Entete &e : entetes)
        g.setText(2, e.colonne, QString::fromUtf8(e.texte));
    g.setRowHeight(2, 570);
}

} // namespace

DebitsVentilation LireDebits(const QString &cellule)
{
    DebitsVentilation d;
    const qsizetype maxi = cellule.indexOf(QStringLiteral("Maxi : "));
    const qsizetype mini = cellule.indexOf(QStringLiteral("Mini : "));
    d.maxi = nombre(maxi >= 0 ? cellule.mid(maxi + 7) : cellule);
    d.mini = mini >= 0 ? nombre(cellule.mid(mini + 7)) : d.maxi;
    return d;
}

double FacteurRecuperation(const Grid &pertes)
{
    double debits = 0;
    double ponderes = 0;
    for (int r = 0; r < pertes.rows(); ++r) {
        if (pertes.text(r, 0) != codeResultats)
            continue;
        const double qi = nombre(pertes.text(r, 13));
        const double recuperation = nombre(pertes.text(r, 14).mid(7));
        debits += qi;
        ponderes += qi * (100 - recuperation) / 100;
    }
    return debits > 0 ? ponderes / debits : 1.0;
}

BilanUbat FeuilleCalculUbat(Classeur &classeur)
{
    Study &e = classeur.etude();
    const EtatSession &s = classeur.etat();
    const Grid &pertes = e.flexGrid[4];
    Grid &g = e.flexGrid[5];
    BilanUbat bilan;

    // The sheet is derived: it is cleared and rebuilt on every entry.
    g = Grid(std::max(pertes.rows(), 3), Colonnes);
    g.fixedRows = 3;
    for (int r = 0; r < g.rows(); ++r)
        for (int c = 0; c < Colonnes; ++c)
            g.cellPtr(r, c)->attributs.couleurFond = s.CouleurVerrouillee;
    for (int c = 0; c < Colonnes; ++c)
        g.setColWidth(c, c < 5 || c > 22 ? 0 : c == 5 ? 3200 : 900);
    ecrireEntetes(g);

    QVector<Ligne> lignes = fusionner(rassembler(pertes));
    trier(lignes);
    bilan.lignes = int(lignes.size());

    // 5. Conductances.
    std::array<double, 8> parCode {};
    for (Ligne &l : lignes) {
        const double b = nombre(l[16]);
        double jour, nuit;
        if (estPont(l)) {
            jour = nuit = nombre(l[13]) * nombre(l[15]) * b;
            bilan.sommePonts += nuit;
            bilan.longueurPonts += nombre(l[15]);
        } else {
            jour = nombre(l[11]) * nombre(l[14]) * b;
            nuit = nombre(l[12]) * nombre(l[14]) * b;
            bilan.surfaceParois += nombre(l[14]);
        }
        l[17] = Format(jour, formatPertes);
        l[18] = Format(nuit, formatPertes);
        bilan.sommeJour += jour;
        bilan.sommeNuit += nuit;
        const QString code = l[8];
        if (code.size() >= 2 && code.at(0) == QLatin1Char('A')) {
            const int n = code.at(1).digitValue();
            if (n >= 1 && n <= 7)
                parCode[n] += n <= 5 ? jour : nuit;
        }
    }

    // 8. Gross surfaces: a wall takes back the joinery of its façade; a joinery line
    // gives its count of units.
    const Grid &parois = e.flexGrid[1];
    for (Ligne &l : lignes) {
        if (estPont(l))
            continue;
        if (estMenuiserie(l[8])) {
            double largeur = 0, hauteur = 0;
            if (dimensionsMenuiserie(parois, l[20], largeur, hauteur))
                l[19] = QStringLiteral("Nb : ")
                    + Format(nombre(l[14]) / (largeur * hauteur), QStringLiteral("###,###"));
            continue;
        }
        double brute = nombre(l[14]);
        for (const Ligne &m : lignes)
            if (!estPont(m) && estMenuiserie(m[8]) && m[7] == l[7])
                brute += nombre(m[14]);
        l[19] = Format(brute, QStringLiteral("##,##0.00"));
    }

    // Written back from row 3, under its title.
    int r = 3;
    g.setText(r, 5, QStringLiteral("Calcul du coefficient Ubat : "));
    ++r;
    const int besoin = r + int(lignes.size()) + 30;
    if (g.rows() < besoin)
        g.setRows(besoin);
    for (const Ligne &l : lignes) {
        for (int c = 5; c < Colonnes; ++c)
            g.setText(r, c, l[c]);
        ++r;
    }

    // 6 and 7. Totals and Ubat.
    auto totaux = [&](int c, double v) {
        g.setText(r, c, Format(v, formatPertes));
        g.cellPtr(r, c)->attributs.taillePolice = 8;
    };
    totaux(14, bilan.surfaceParois);
    totaux(15, bilan.longueurPonts);
    totaux(17, bilan.sommeJour);
    totaux(18, bilan.sommeNuit);
    r += 1;
    if (bilan.surfaceParois > 0) {
        bilan.ubat = (bilan.sommeJour + bilan.sommeNuit) / 2 / bilan.surfaceParois;
        g.setText(r, 5,
                  QStringLiteral("Ubat = ((") + Format(bilan.sommeJour, formatPertes)
                      + QStringLiteral(" + ") + Format(bilan.sommeNuit, formatPertes)
                      + QStringLiteral(") / 2) / ") + Format(bilan.surfaceParois, formatPertes));
        g.setText(r + 1, 5,
                  QStringLiteral("= ") + Format(bilan.ubat, QStringLiteral("###,#0.000"))
                      + QStringLiteral(" W/(m².K)"));
    }
    r += 2;

    // 9. Building sums, room by room; a room counts as heated above 12 °C of air.
    double air = 0;
    for (int ligne = 0; ligne < pertes.rows(); ++ligne) {
        const QString code = pertes.text(ligne, 0);
        if (code == codeTete) {
            air = nombre(pertes.text(ligne, 17));
            continue;
        }
        if (code == codeParoi && pertes.text(ligne, 9).trimmed() == QLatin1String("A1"))
            bilan.surfaceA1 += nombre(pertes.text(ligne, 15));
        if (code != codeResultats)
            continue;
        const double surface = nombre(pertes.text(ligne, 2));
        const double volume = nombre(pertes.text(ligne, 8));
        const double perte = nombre(pertes.text(ligne, 18));
        bilan.surfaceTotale += surface;
        bilan.volumeTotal += volume;
        bilan.pertesTotales += perte;
        if (air > 12) {
            bilan.surfaceChauffee += surface;
            bilan.volumeChauffe += volume;
            bilan.pertesChauffees += perte;
        }
    }

    // 10. Coefficient G.
    const Grid &ventilation = e.flexGrid[3];
    const QString type = e.flexGrid[0].text(12, 13);
    const bool logement = type == QStringLiteral("Maison individuelle.")
        || type == QStringLiteral("Bâtiment collectif.");
    const DebitsVentilation moyens = LireDebits(ventilation.text(22, 12));
    const double qa = LireDebits(ventilation.text(20, 12)).maxi;
    const double qx = std::max(nombre(ventilation.text(4, 12)), nombre(ventilation.text(6, 12)));
    const double kr = FacteurRecuperation(pertes);
    const double normale = (moyens.maxi + qa * kr) * 0.34;
    const double reduite = (moyens.mini + qx * kr) * 0.34;
    r += 6;
    const int debutG = r;
    g.setText(r, 5, QStringLiteral("Calcul de G : "));
    struct Colonne
    {
        int jour, nuit;
        double debit, ventilation;
    };
    QVector<Colonne> colonnes {{13, 15, moyens.maxi, normale}};
    if (logement) {
        // Each heading covers its day and night columns.
        for (int c = 13; c <= 16; ++c)
            g.setText(r, c, QStringLiteral("Ventilation normale"));
        for (int c = 17; c <= 20; ++c)
            g.setText(r, c, QStringLiteral("Ventilation réduite"));
        g.setMergeRow(r, true);
        colonnes << Colonne {17, 19, moyens.mini, reduite};
    }
    ++r;
    for (const Colonne &c : colonnes) {
        g.setText(r, c.jour, QStringLiteral("Jour"));
        g.setText(r, c.nuit, QStringLiteral("Nuit"));
    }
    const QStringList libelles = {
        QStringLiteral("Pertes par transmission (W/K) : "),
        QStringLiteral("Débit moyen de ventilation (m³/h) : "),
        QStringLiteral("Pertes par ventilation (W/K) : "),
        QStringLiteral("Pertes totales (W/K) : "),
        QStringLiteral("Surface habitable chauffée > 12°C (m²) : "),
        QStringLiteral("Volume habitable chauffé > 12°C (m³) : "),
        QStringLiteral("Coefficient G (W/(m³.K)) : "),
    };
    for (int i = 0; i < libelles.size(); ++i)
        g.setText(r + 1 + i, 5, libelles[i]);
    for (const Colonne &c : colonnes) {
        const double transmission[2] = {bilan.sommeJour, bilan.sommeNuit};
        const int cols[2] = {c.jour, c.nuit};
        for (int k = 0; k < 2; ++k) {
            const double total = transmission[k] + c.ventilation;
            const double gv = bilan.volumeChauffe > 0 ? total / bilan.volumeChauffe : 0;
            g.setText(r + 1, cols[k], Format(transmission[k], formatPertes));
            g.setText(r + 2, cols[k], Format(c.debit, QStringLiteral("###,##0")));
            g.setText(r + 3, cols[k], Format(c.ventilation, formatPertes));
            g.setText(r + 4, cols[k], Format(total, formatPertes));
            g.setText(r + 5, cols[k], Format(bilan.surfaceChauffee, formatPertes));
            g.setText(r + 6, cols[k], Format(bilan.volumeChauffe, formatPertes));
            g.setText(r + 7, cols[k], Format(gv, QStringLiteral("##0.000")));
            if (&c == &colonnes.first() && k == 0)
                bilan.g = gv;
        }
    }
    Q_UNUSED(debutG);

    // 11. The summary of the administrative sheet, and the share of the bridges.
    double parCodeTotal = 0;
    for (double v : parCode)
        parCodeTotal += v;
    const double partPonts = parCodeTotal > 0 ? bilan.sommePonts / parCodeTotal * 100 : 0;
    const QStringList resume = {
        Format(bilan.surfaceTotale, QStringLiteral("##,##0.00")),
        Format(bilan.surfaceChauffee, QStringLiteral("##,##0.00")),
        Format(bilan.volumeTotal, QStringLiteral("##,##0.00")),
        Format(bilan.volumeChauffe, QStringLiteral("##,##0.00")),
        Format(bilan.pertesTotales, QStringLiteral("###,###,##0")),
        Format(bilan.pertesChauffees, QStringLiteral("###,###,##0")),
        Format(bilan.volumeTotal > 0 ? bilan.surfaceTotale / bilan.volumeTotal : 0,
               QStringLiteral("##0.00")),
    };
    Grid &admin = e.flexGrid[0];
    // One figure a line, after the blank first line that the labels have too.
    const QString texte = QStringLiteral("\r\n") + resume.join(QStringLiteral("\r\n"));
    for (int c = 13; c < admin.cols(); ++c)
        admin.setText(14, c, texte);
    g.setText(debutG - 2, 5,
              QStringLiteral("Part des ponts thermiques (%) : ")
                  + Format(partPonts, QStringLiteral("##0.00")));
    classeur.vue().grillesModifiees = true;
    return bilan;
}

void FeuilleCoefUbat::construire(Classeur &classeur)
{
    Grid &g = classeur.etude().flexGrid[5];
    g = Grid(std::max(classeur.etude().flexGrid[4].rows(), 3), Colonnes);
    g.fixedRows = 3;
    ecrireEntetes(g);
}

void FeuilleCoefUbat::entrer(Classeur &classeur)
{
    FeuilleCalculUbat(classeur);
}

void FeuilleCoefUbat::recalculerFeuille(Classeur &classeur)
{
    FeuilleCalculUbat(classeur);
}

} // namespace thermique
