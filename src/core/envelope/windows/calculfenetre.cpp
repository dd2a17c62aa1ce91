#include "envelope/windows/calculfenetre.h"

#include "envelope/coefu/editeurparois.h"
#include "envelope/windows/cataloguesfenetres.h"
#include "workbook/grid.h"
#include "workbook/nombres.h"

#include <cmath>

namespace thermique {

namespace C = ColonneParoi;
namespace L = LigneFenetre;

namespace {

const char *const libelles[L::Nombre] = {
    "Coefficient des profils de menuiserie (Uf) :",
    "Surface de menuiserie (m²) :",
    "Coefficient surfacique du vitrage (Ug) :",
    "Surface de vitrage (m²) : ",
    "Coefficient linéique du vitrage (psi-g) :",
    "Longueur de liaison vit. men. (m) :",
    "Coefficient surfacique de l'imposte (Up) :",
    "Surface vitrée en imposte (m²) : ",
    "Coefficient linéique de l'imposte (psi-p) :",
    "Longueur de liaison men. imp. (m) :",
    "Coefficient surfacique de l'allège (Up) :",
    "Surface vitrée en allège (m²) : ",
    "Coefficient linéique de l'allège (psi-p) :",
    "Longueur de liaison men. allè. (m) :",
    "Résistance additionnelle volets (R) :",
    "Coefficient surfacique du coffre (Uc) :",
    "Surface du coffre (m²) :",
    "Coefficients de la fenêtre (Uw) et (Uwf) :",
};

// Prefixes by which the calculation finds its rows, so that a renamed surface row or a
// rewritten label is still read.
const QString prefixeProfils = QStringLiteral("Coefficient des profils");
const QString prefixeMenuiserie = QStringLiteral("Surface de menuiserie");
const QString prefixeUg = QStringLiteral("Coefficient surfacique du vitrage");
const QString prefixeSv = QStringLiteral("Surface de vitrage");
const QString prefixePsiG = QStringLiteral("Coefficient linéique du vitrage");
const QString prefixeLg = QStringLiteral("Longueur de liaison vit.");
const QString prefixeUpI = QStringLiteral("Coefficient surfacique de l'imposte");
const QString prefixeSiVitree = QStringLiteral("Surface vitrée en imposte");
const QString prefixeSiPleine = QStringLiteral("Surface pleine en imposte");
const QString prefixePsiI = QStringLiteral("Coefficient linéique de l'imposte");
const QString prefixeLi = QStringLiteral("Longueur de liaison men. imp.");
const QString prefixeUpA = QStringLiteral("Coefficient surfacique de l'allège");
const QString prefixeSaVitree = QStringLiteral("Surface vitrée en allège");
const QString prefixeSaPleine = QStringLiteral("Surface pleine en allège");
const QString prefixePsiA = QStringLiteral("Coefficient linéique de l'allège");
const QString prefixeLa = QStringLiteral("Longueur de liaison men. allè.");
const QString prefixeVolets = QStringLiteral("Résistance additionnelle volets");
const QString prefixeUc = QStringLiteral("Coefficient surfacique du coffre");
const QString prefixeAc = QStringLiteral("Surface du coffre");
const QString prefixeResultat = QStringLiteral("Coefficients de la fenêtre");

// The most rows a block can take once the user has inserted lines in it.
constexpr int etendueMaximale = 40;

struct Couleur
{
    const char *nom;
    const char *alpha;
};
constexpr Couleur couleurs[] = {
    {"Blanc", "0.40"},       {"Jaune", "0.40"},        {"Rouge clair", "0.40"},
    {"Orange", "0.40"},      {"Rouge sombre", "0.60"}, {"Vert clair", "0.60"},
    {"Bleu clair", "0.60"},  {"Bleu vif", "0.80"},     {"Brun", "0.80"},
    {"Vert sombre", "0.80"}, {"Bleu sombre", "1.00"},  {"Noir", "1.00"},
    {"Brun sombre", "1.00"},
};

QString f2(double v)
{
    return Format(v, QStringLiteral("##0.00"));
}

// A value as a cell shows it with two decimals, read back.
double arrondi2(double v)
{
    return ValNombre(f2(v));
}

} // namespace

const QStringList &LibellesFenetre()
{
    static const QStringList l = [] {
        QStringList r;
        for (const char *t : libelles)
            r << QString::fromUtf8(t);
        return r;
    }();
    return l;
}

ResultatFenetre CalculerFenetre(const ValeursFenetre &v)
{
    ResultatFenetre res;
    // A glazed panel adds to the glazing and keeps its own term: it counts twice below.
    res.ag = v.sv + (v.imposteVitree ? v.si : 0) + (v.allegeVitree ? v.sa : 0);
    const double ag = res.ag;
    if (ag + v.af + v.ac > 0)
        res.sigma = ag / (ag + v.af + v.ac);

    const std::pair<double, double> paires[] = {
        {v.af, v.uf},        {ag, v.ug},          {v.lg, v.psiG},       {v.sa, v.upAllege},
        {v.la, v.psiAllege}, {v.si, v.upImposte}, {v.li, v.psiImposte},
    };
    for (const auto &[surface, coefficient] : paires)
        if (surface > 0 && coefficient == 0) {
            res.faux = true;
            return res;
        }

    const double denominateur = v.af + ag + v.sa + v.si;
    if (denominateur <= 0) {
        res.vide = true;
        return res;
    }
    double uw = (v.uf * v.af + v.ug * ag + v.psiG * v.lg + v.upAllege * v.sa + v.psiAllege * v.la
                 + v.upImposte * v.si + v.psiImposte * v.li)
        / denominateur;
    double uwf = uw;
    if (v.r > 0 && uw > 0)
        uwf = 1 / (1 / uw + v.r);
    if (v.uc > 0 && v.ac > 0) {
        const double s = v.af + ag;
        const double uwBoite = (s * uw + v.ac * v.uc) / (s + v.ac);
        uwf = (s * uwf + v.ac * v.uc) / (s + v.ac);
        uw = uwBoite;
    }
    res.uw = uw;
    res.uwf = uwf;
    // Ujn is taken from the two cells as shown.
    res.ujn = (arrondi2(uw) + arrondi2(uwf)) / 2;
    res.sw1 = v.facteurSolaire * res.sigma + (v.uf * v.alpha / 25) * (1 - res.sigma);
    if (v.tl > 0)
        res.tl = v.tl * res.sigma;
    return res;
}

SurfacesFenetre SurfacesDepuisDimensions(const DimensionsFenetre &d)
{
    SurfacesFenetre s;
    const double n = d.vantaux > 0 ? d.vantaux : 1;
    const bool imposte = d.imposte > 0;
    const bool allege = d.allege > 0;
    const int k = 1 + (imposte ? 1 : 0) + (allege ? 1 : 0);
    const double montants = (n - 1) * d.profil * 1.5;
    s.hv = d.hauteur - d.coffre - d.allege - d.imposte - k * d.profil - d.seuil;
    s.lv = d.largeur - 2 * d.profil - montants;
    s.lc = d.largeur - 2 * d.profil;
    s.la = s.lc - montants;
    s.si = s.lc * d.imposte;
    s.sv = s.lv * s.hv;
    s.sa = s.la * d.allege;
    s.sc = d.largeur * d.coffre;
    s.sf = d.largeur * d.hauteur - s.si - s.sv - s.sa - s.sc;
    s.longueurVitrage = ((s.lv / n + s.hv) * 2) * n;
    if (imposte)
        s.longueurImposte = (s.lc + d.imposte) * 2;
    if (allege)
        s.longueurAllege = (s.la + d.allege) * 2 + (d.allegeDivisee ? 2 * d.allege * n : 0);
    s.surfaceOuvrant = s.sv + (d.imposteOuvrante ? s.si : 0) + (d.allegeOuvrante ? s.sa : 0);
    return s;
}

const QStringList &CouleursMenuiserie()
{
    static const QStringList l = [] {
        QStringList r;
        for (const Couleur &c : couleurs)
            r << QString::fromUtf8(c.nom);
        return r;
    }();
    return l;
}

QString AbsorptionCouleur(int index)
{
    if (index < 0 || index >= int(std::size(couleurs)))
        return {};
    return QString::fromUtf8(couleurs[index].alpha);
}

std::optional<int> FinFenetre(const Grid &g, int tete)
{
    for (int r = tete + 1; r < g.rows() && r <= tete + etendueMaximale; ++r) {
        const QString l = g.text(r, C::Libelle);
        if (l.startsWith(prefixeResultat))
            return r;
        if (l.startsWith(prefixeProfils) || EstLigneSortie(l))
            return std::nullopt;
    }
    return std::nullopt;
}

std::optional<int> LigneFenetreLibelle(const Grid &g, int tete, const QString &prefixe)
{
    const int fin = FinFenetre(g, tete).value_or(std::min(g.rows() - 1, tete + L::Resultat));
    for (int r = tete; r <= fin; ++r)
        if (g.text(r, C::Libelle).startsWith(prefixe))
            return r;
    return std::nullopt;
}

QString NomFenetre(const DimensionsFenetre &d, bool avecSeuil)
{
    QString nom = avecSeuil ? QStringLiteral("PF. ") : QStringLiteral("FE. ");
    nom += f2(d.largeur) + QStringLiteral(" x ") + f2(d.hauteur - d.coffre)
        + QStringLiteral(" Volet");
    if (d.coffre > 0)
        nom += QStringLiteral(" et coffre VR");
    return nom;
}

void AppliquerDimensions(ContexteParois &ctx, int tete, const DimensionsFenetre &d, bool avecSeuil,
                         int couleur)
{
    Grid &g = ctx.grille;
    const SurfacesFenetre s = SurfacesDepuisDimensions(d);
    const auto ecrire = [&](const QString &prefixe, double valeur) {
        if (const auto r = LigneFenetreLibelle(g, tete, prefixe)) {
            g.setText(*r, C::ResistanceSuperficielle, f2(valeur));
            g.setOperation(*r, C::ResistanceSuperficielle, QString());
        }
    };
    ecrire(prefixeMenuiserie, s.sf);
    if (const auto r = LigneFenetreLibelle(g, tete, prefixeMenuiserie))
        g.setText(*r, C::Libelle,
                  QStringLiteral("Surface de menuiserie (m²), (hors tout : L ") + f2(d.largeur)
                      + QStringLiteral(" x H ") + f2(d.hauteur) + QStringLiteral(") :"));
    ecrire(prefixeSv, s.sv);
    ecrire(prefixeLg, s.longueurVitrage);
    ecrire(prefixeSiVitree, s.si);
    ecrire(prefixeSiPleine, s.si);
    ecrire(prefixeLi, s.longueurImposte);
    ecrire(prefixeSaVitree, s.sa);
    ecrire(prefixeSaPleine, s.sa);
    ecrire(prefixeLa, s.longueurAllege);
    ecrire(prefixeAc, s.sc);
    g.setText(tete, C::Nom, NomFenetre(d, avecSeuil));
    const QString alpha = AbsorptionCouleur(couleur);
    if (!alpha.isEmpty())
        g.setText(tete, C::Teinte, alpha);
    CalculFenêtre(ctx, tete);
}

void EcrireBlocFenetre(ContexteParois &ctx, int ligne)
{
    Grid &g = ctx.grille;
    if (ligne + L::Nombre > g.rows())
        g.setRows(ligne + L::Nombre + 10);
    if (g.text(ligne, C::Cle).trimmed().isEmpty()) {
        ++ctx.compteurParois;
        g.setText(ligne, C::Cle, Format(ctx.compteurParois, QStringLiteral("0000")));
    }
    g.setText(ligne, C::Nom, TypeFenetre());
    g.setText(ligne, C::Teinte, QStringLiteral("0.40"));
    g.setText(ligne, C::Code,
              ctx.typeConstruction == QStringLiteral("Bâtiment collectif.") ? QStringLiteral("A7")
                                                                            : QStringLiteral("A6"));
    g.setText(ligne, C::Permeabilite, QStringLiteral("0.30"));
    g.setText(ligne, C::FacteurSolaire, QStringLiteral("0.50"));
    g.setText(ligne, C::Cache, TypeFenetre());
    for (int i = 0; i < L::Nombre; ++i) {
        const int r = ligne + i;
        g.setText(r, C::Libelle, LibellesFenetre().at(i));
        if (i == 0)
            PeindreLigneParoi(ctx, r,
                              {C::Nom, C::Teinte, C::Permeabilite, C::FacteurSolaire,
                               C::ResistanceSuperficielle});
        else if (i == L::Resultat)
            PeindreLigneParoi(ctx, r, {});
        else
            PeindreLigneParoi(ctx, r, {C::ResistanceSuperficielle});
    }
    g.setMergeRow(ligne + L::Resultat, true);
    g.setRowHeight(ligne + L::Resultat, 2 * Grid::HauteurLigneDefaut);
    CalculFenêtre(ctx, ligne);
}

void CalculFenêtre(ContexteParois &ctx, int tete)
{
    Grid &g = ctx.grille;
    const auto fin = FinFenetre(g, tete);
    if (!fin)
        return;
    const auto valeur = [&](const QString &prefixe, bool *trouve = nullptr) -> double {
        const auto r = LigneFenetreLibelle(g, tete, prefixe);
        if (trouve)
            *trouve = r.has_value();
        return r ? ValNombre(g.text(*r, C::ResistanceSuperficielle)) : 0;
    };
    ValeursFenetre v;
    v.uf = valeur(prefixeProfils);
    v.af = valeur(prefixeMenuiserie);
    v.ug = valeur(prefixeUg);
    if (const auto r = LigneFenetreLibelle(g, tete, prefixeUg))
        v.tl = ValNombre(g.text(*r, C::Cache));
    v.sv = valeur(prefixeSv);
    v.psiG = valeur(prefixePsiG);
    v.lg = valeur(prefixeLg);
    v.upImposte = valeur(prefixeUpI);
    bool vitree = false;
    v.si = valeur(prefixeSiVitree, &vitree);
    v.imposteVitree = vitree;
    if (!vitree)
        v.si = valeur(prefixeSiPleine);
    v.psiImposte = valeur(prefixePsiI);
    v.li = valeur(prefixeLi);
    v.upAllege = valeur(prefixeUpA);
    v.sa = valeur(prefixeSaVitree, &vitree);
    v.allegeVitree = vitree;
    if (!vitree)
        v.sa = valeur(prefixeSaPleine);
    v.psiAllege = valeur(prefixePsiA);
    v.la = valeur(prefixeLa);
    v.r = valeur(prefixeVolets);
    v.uc = valeur(prefixeUc);
    v.ac = valeur(prefixeAc);
    v.facteurSolaire = ValNombre(g.text(tete, C::FacteurSolaire));
    v.alpha = ValNombre(g.text(tete, C::Teinte));

    const ResultatFenetre res = CalculerFenetre(v);
    const int r = *fin;
    const auto ecrireResultat = [&](const QString &libelle, const QString &uw, const QString &uwf) {
        for (int c = C::Libelle; c <= C::Resistance; ++c)
            g.setText(r, c, libelle);
        g.setText(r, C::UJour, uw);
        g.setText(r, C::UNuit, uwf);
        g.setText(tete, C::UJour, uw);
        g.setText(tete, C::UNuit, uwf);
        g.setMergeRow(r, true);
    };
    if (const auto sv = LigneFenetreLibelle(g, tete, prefixeSv)) {
        g.setText(*sv, C::Libelle,
                  res.tl && !res.faux ? QStringLiteral("Surface de vitrage (m²), (TL = ")
                          + Format(*res.tl, QStringLiteral("#0.00")) + QStringLiteral(") :")
                                      : LibellesFenetre().at(L::SurfaceVitrage));
    }
    if (res.faux) {
        ecrireResultat(LibellesFenetre().at(L::Resultat), QStringLiteral("Faux"),
                       QStringLiteral("Faux"));
        return;
    }
    if (res.vide) {
        ecrireResultat(LibellesFenetre().at(L::Resultat), QString(), QString());
        g.setText(tete, C::Cache, TypeFenetre());
        return;
    }
    const QString uw = f2(res.uw);
    const QString uwf = f2(res.uwf);
    const QString ujn = Format(res.ujn, QStringLiteral("#0.00"));
    const QString sw1 = Format(res.sw1, QStringLiteral("#0.00"));
    ecrireResultat(QStringLiteral("Coefficients de la fenêtre, (Uw = ") + uw
                       + QStringLiteral("), (Uwf = ") + uwf + QStringLiteral("), (Ujn = ") + ujn
                       + QStringLiteral("), (Sw1 = ") + sw1 + QStringLiteral(") :"),
                   uw, uwf);
    // The raw figures, for the calculations that read the block again.
    const double brutes[] = {res.sigma, res.uw, res.uwf, res.ujn, res.sw1, res.tl.value_or(0),
                             v.uf,      v.af,   res.ag,  v.ac,    v.alpha, v.facteurSolaire};
    QStringList textes;
    for (double b : brutes)
        textes << TexteNombre(b);
    g.setText(tete, C::Cache, textes.join(QLatin1Char('$')));
}

QString FormulaireFenetre(const Grid &g, int ligne, int colonne)
{
    const auto tete = ChercherEntêteParoi(g, ligne);
    if (!tete || !g.text(*tete, C::Libelle).startsWith(prefixeProfils))
        return {};
    const QString libelle = g.text(ligne, C::Libelle);
    if (colonne == C::ResistanceSuperficielle && CatalogueDuLibelle(libelle))
        return QStringLiteral("Frm_UVitrages");
    if (colonne == C::Libelle && ligne == *tete)
        return QStringLiteral("Frm_UVitrages_1");
    if (colonne == C::Libelle && libelle.startsWith(QStringLiteral("Surface")))
        return QStringLiteral("Frm_FenêtresSaisies");
    return {};
}

QString AideFenetre(const Grid &g, int ligne, int colonne)
{
    const auto tete = ChercherEntêteParoi(g, ligne);
    if (!tete || ligne != *tete || !g.text(*tete, C::Libelle).startsWith(prefixeProfils))
        return {};
    if (colonne == C::Permeabilite)
        return QStringLiteral("Perméabilité à l'air m de la menuiserie en m³/(h.m²) : classe A3 "
                              "= 0.3, A2 = 0.8, A1 = 2.0, non classée 4.0, porte non classée "
                              "avec seuil et joint 1.20.");
    if (colonne == C::FacteurSolaire)
        return QStringLiteral("Facteur solaire S du vitrage : simple vitrage 0.87, double "
                              "vitrage 0.78, triple vitrage 0.70.");
    return {};
}

ExtensionFenetres ExtensionMenuiseries()
{
    ExtensionFenetres e;
    e.lignes = L::Nombre;
    e.ecrireBloc = [](ContexteParois &ctx, int ligne) {
        EcrireBlocFenetre(ctx, ligne);
    };
    e.calculer = [](ContexteParois &ctx, int tete) {
        CalculFenêtre(ctx, tete);
    };
    return e;
}

} // namespace thermique
