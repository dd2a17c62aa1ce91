#include "tableaupertes.h"

#include "workbook/nombres.h"

#include <initializer_list>

namespace thermique {

namespace C = ColonnePertes;

namespace {

const QString blanc = QStringLiteral(" ");

// Widths of columns 0 to 18; the working columns beyond are hidden.
constexpr int largeurs[19] = {0,   550, 400, 400, 400, 450, 400, 550, 550, 500,
                              550, 450, 700, 700, 650, 950, 600, 600, 1000};

void peindre(Grid &g, int r, const CouleursPertes &c, std::initializer_list<int> saisies,
             qint32 alignement = AlignementDroiteCentre)
{
    for (int col = 1; col <= C::Pertes; ++col) {
        Cell *p = g.cellPtr(r, col);
        if (!p)
            return;
        p->attributs.couleurFond = c.verrouillee;
        p->attributs.alignement = alignement;
    }
    for (int col : saisies)
        if (Cell *p = g.cellPtr(r, col))
            p->attributs.couleurFond = c.saisie;
}

void aligner(Grid &g, int r, int debut, int fin, qint32 alignement)
{
    for (int col = debut; col <= fin; ++col)
        if (Cell *p = g.cellPtr(r, col))
            p->attributs.alignement = alignement;
}

void ecrirePlage(Grid &g, int r, int debut, int fin, const QString &texte)
{
    for (int col = debut; col <= fin; ++col)
        g.setText(r, col, texte);
}

// A row of blanks with its code, ready for a builder.
void preparer(Grid &g, int r, const QString &code)
{
    if (r >= g.rows())
        g.setRows(r + 1);
    for (int col = 0; col < g.cols(); ++col) {
        g.setText(r, col, blanc);
        g.setOperation(r, col, QString());
    }
    g.setText(r, C::Code, code);
    g.setMergeRow(r, true);
    g.setRowHeight(r, Grid::HauteurLigneDefaut);
}

QString inclinaisonParDefaut(const QString &code)
{
    if (code == QLatin1String("A4"))
        return QStringLiteral("0");
    if (code == QLatin1String("A2") || code == QLatin1String("A3"))
        return QStringLiteral("180");
    return QStringLiteral("90");
}

bool azimutFixe(const QString &code)
{
    return code == QLatin1String("A3") || code == QLatin1String("A4");
}

void libellesTete(Grid &g, int r)
{
    g.setText(r, 1, QStringLiteral("Local:"));
    g.setText(r, 8, QStringLiteral("θrs :"));
    g.setText(r, 10, QStringLiteral("θe  :"));
    g.setText(r, 16, QStringLiteral("θa : "));
}

} // namespace

const QStringList &Emetteurs()
{
    static const QStringList liste
        = {QStringLiteral("Radi."),   QStringLiteral("Conv."),   QStringLiteral("Pr ch."),
           QStringLiteral("Pl. ch."), QStringLiteral("Air<5VH"), QStringLiteral("Air>5VH")};
    return liste;
}

QString ParametresLocalDefaut()
{
    return QStringLiteral("0.401.151.651.651.5003.525.065.055.050.0033317776730347000000000000000");
}

void FormerGrillePertes(Grid &g)
{
    if (g.cols() < ColonnesPertes)
        g.setCols(ColonnesPertes);
    g.fixedRows = 0;
    g.fixedCols = 0;
    for (int col = 0; col < g.cols(); ++col)
        g.setColWidth(col, col < 19 ? largeurs[col] : 0);
}

bool EstLigneCalcul(const QString &code)
{
    return code.left(18) == CodePertes::Calcul;
}

bool EstLigneLibre(const Grid &g, int r)
{
    return g.text(r, C::Code).trimmed().isEmpty();
}

TableauLocal TrouverTableau(const Grid &g, int ligne)
{
    TableauLocal t;
    int r = ligne;
    while (r >= 0 && g.text(r, C::Code) != CodePertes::Tete) {
        // Above the results or the closing row of another table: not in a table.
        if (r != ligne && (g.text(r, C::Code) == CodePertes::Fin))
            return t;
        --r;
    }
    if (r < 0)
        return t;
    t.tete = r;
    for (int s = r + 1; s < g.rows(); ++s) {
        const QString code = g.text(s, C::Code);
        if (code == CodePertes::Tete)
            break;
        if (code == CodePertes::Titres && t.titres < 0)
            t.titres = s;
        else if (code == CodePertes::Air && t.air < 0)
            t.air = s;
        else if (code == CodePertes::Complement && t.complement < 0)
            t.complement = s;
        else if (code == CodePertes::Resultats && t.resultats < 0)
            t.resultats = s;
        else if (code == CodePertes::Fin) {
            t.fin = s;
            break;
        }
    }
    if (t.resultats >= 0 && ligne > (t.fin >= 0 ? t.fin : t.resultats))
        return {};
    return t;
}

QVector<int> TetesTableaux(const Grid &g)
{
    QVector<int> tetes;
    for (int r = 0; r < g.rows(); ++r)
        if (g.text(r, C::Code) == CodePertes::Tete)
            tetes << r;
    return tetes;
}

void EcrireTete(Grid &g, int r, const CouleursPertes &c, double temperatureBase)
{
    preparer(g, r, CodePertes::Tete);
    libellesTete(g, r);
    g.setText(r, C::TemperatureExterieure, TexteNombre(temperatureBase));
    g.setText(r, C::Emetteur, Emetteurs().first());
    FormaterLigne(g, r, c);
}

void EcrireTitres(Grid &g, int r, const CouleursPertes &c)
{
    preparer(g, r, CodePertes::Titres);
    ecrirePlage(g, r, 1, 6, QStringLiteral("Paroi"));
    g.setText(r, 7, QStringLiteral("Incli."));
    g.setText(r, 8, QStringLiteral("Azi."));
    g.setText(r, 9, QStringLiteral("Code"));
    g.setText(r, 10, QStringLiteral("m"));
    g.setText(r, 11, QStringLiteral("F"));
    ecrirePlage(g, r, 12, 13, QStringLiteral("U (J et N)\r\n(W/m².K)"));
    g.setText(r, 14, QStringLiteral("Ul\r\n(W/m.K)"));
    g.setText(r, 15, QStringLiteral("(m²)(m³)\r\n(m)"));
    g.setText(r, 17, QStringLiteral("b"));
    g.setText(r, 18, QStringLiteral("Pertes (W)"));
    FormaterLigne(g, r, c);
}

void EcrireLigneParoi(Grid &g, int r, const CouleursPertes &c, const QString &entree)
{
    preparer(g, r, CodePertes::Paroi);
    const QStringList champs = entree.split(QLatin1Char('@'));
    if (champs.size() >= 7) {
        ecrirePlage(g, r, 1, 6, champs[0]);
        for (int i = 1; i <= 5; ++i)
            g.setText(r, C::CodeParoi + i - 1, champs[i]);
        g.setText(r, C::Cle, entree.right(4));
        g.setText(r, C::Inclinaison, inclinaisonParDefaut(champs[1]));
    }
    g.setText(r, C::ULineique, QStringLiteral("   "));
    g.setText(r, C::B, QStringLiteral("1.00"));
    g.setText(r, C::Pertes, QStringLiteral("       "));
    FormaterLigne(g, r, c);
}

void EcrireLignePont(Grid &g, int r, const CouleursPertes &c, const QString &entree)
{
    preparer(g, r, CodePertes::Pont);
    const QStringList champs = entree.split(QLatin1Char('@'));
    if (champs.size() >= 4) {
        ecrirePlage(g, r, 1, 6, champs[0]);
        g.setText(r, C::CodeParoi, champs[1]);
        g.setText(r, C::ULineique, champs[2]);
        g.setText(r, C::Cle, entree.right(4));
    }
    g.setText(r, C::Inclinaison, QString());
    g.setText(r, C::Azimut, QString());
    g.setText(r, C::DeltaT, QStringLiteral("     "));
    g.setText(r, C::B, QStringLiteral("1.00"));
    g.setText(r, C::Pertes, QStringLiteral("       "));
    FormaterLigne(g, r, c);
}

void EcrireLigneAir(Grid &g, int r, const CouleursPertes &c)
{
    preparer(g, r, CodePertes::Air);
    ecrirePlage(g, r, 1, 11, QStringLiteral("Renouvellement d'air."));
    ecrirePlage(g, r, 12, 13, QStringLiteral("0.34"));
    g.setText(r, C::B, QStringLiteral("1.00"));
    FormaterLigne(g, r, c);
}

void EcrireResultats(Grid &g, int r, const CouleursPertes &c)
{
    preparer(g, r, CodePertes::Resultats);
    g.setText(r, 1, QStringLiteral("Aire :"));
    g.setText(r, 4, QStringLiteral("Hsp :"));
    ecrirePlage(g, r, 6, 7, QStringLiteral("Volume :"));
    g.setText(r, 10, QStringLiteral("Pe :"));
    g.setText(r, 12, QStringLiteral("Qi :"));
    g.setText(r, C::Parametres, ParametresLocalDefaut());
    FormaterLigne(g, r, c);
}

void EcrireFinTableau(Grid &g, int r, const CouleursPertes &c)
{
    preparer(g, r, CodePertes::Fin);
    FormaterLigne(g, r, c);
}

void ViderLigne(Grid &g, int r)
{
    if (r >= g.rows())
        g.setRows(r + 1);
    for (int col = 0; col < g.cols(); ++col) {
        g.setText(r, col, blanc);
        g.setOperation(r, col, QString());
    }
    g.setMergeRow(r, true);
}

int EcrireTableau(Grid &g, int debut, const CouleursPertes &c, const QStringList &parois,
                  const QStringList &ponts, double temperatureBase)
{
    FormerGrillePertes(g);
    const int besoin = 5 + int(parois.size()) + int(ponts.size());
    // Rows that hold another table move down; free rows are taken as they are.
    for (int r = debut; r < debut + besoin; ++r) {
        if (r >= g.rows())
            g.setRows(r + 1);
        else if (!EstLigneLibre(g, r))
            g.insertRow(r);
    }
    int r = debut;
    EcrireTete(g, r++, c, temperatureBase);
    EcrireTitres(g, r++, c);
    for (const QString &p : parois)
        EcrireLigneParoi(g, r++, c, p);
    for (const QString &p : ponts)
        EcrireLignePont(g, r++, c, p);
    EcrireLigneAir(g, r++, c);
    EcrireResultats(g, r++, c);
    EcrireFinTableau(g, r++, c);
    return r;
}

void FormaterLigne(Grid &g, int r, const CouleursPertes &c)
{
    const QString code = g.text(r, C::Code);
    if (code == CodePertes::Tete) {
        libellesTete(g, r);
        peindre(g, r, c, {2, 3, 4, 5, 6, C::TemperatureResultante, C::Emetteur});
        aligner(g, r, 2, 6, AlignementGaucheCentre);
        aligner(g, r, C::Emetteur, C::Emetteur, AlignementCentreCentre);
        for (int col = 1; col <= C::Pertes; ++col)
            g.cellPtr(r, col)->attributs.gras = col >= 2 && col <= 6;
    } else if (code == CodePertes::Titres) {
        g.setText(r, C::DeltaT, QStringLiteral("ΔT\r\n(K)"));
        peindre(g, r, c, {}, AlignementCentreCentre);
        g.setRowHeight(r, 570);
    } else if (code == CodePertes::Paroi) {
        if (azimutFixe(g.text(r, C::CodeParoi)))
            peindre(g, r, c, {C::Inclinaison, C::Quantite, C::B});
        else
            peindre(g, r, c, {C::Inclinaison, C::Azimut, C::Quantite, C::B});
    } else if (code == CodePertes::Pont) {
        peindre(g, r, c, {C::Inclinaison, C::Quantite, C::B});
    } else if (code == CodePertes::Air) {
        if (c.simplifie)
            peindre(g, r, c, {C::Quantite, C::DeltaT, C::B, C::Pertes});
        else
            peindre(g, r, c, {C::B});
        aligner(g, r, 1, 11, AlignementGaucheCentre);
    } else if (code == CodePertes::Complement) {
        peindre(g, r, c, {});
        aligner(g, r, 1, 6, AlignementGaucheCentre);
        aligner(g, r, 7, 17, AlignementCentreCentre);
    } else if (code == CodePertes::Resultats) {
        peindre(g, r, c, {C::Aire, 3, C::Hauteur, C::Pe, C::Qi});
        for (int col = 1; col <= C::Pertes; ++col)
            g.cellPtr(r, col)->attributs.gras = col == C::Pertes;
    } else if (code == CodePertes::Fin) {
        peindre(g, r, c, {});
        g.setRowHeight(r, 570);
    }
}

void RestaurerFormatPertes(Grid &g, const CouleursPertes &c)
{
    FormerGrillePertes(g);
    for (int r = 0; r < g.rows(); ++r) {
        // The file keeps no merge flag: every row of the sheet merges its equal neighbours.
        g.setMergeRow(r, true);
        FormaterLigne(g, r, c);
    }
}

} // namespace thermique
