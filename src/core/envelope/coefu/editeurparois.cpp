#include "envelope/coefu/editeurparois.h"

#include "envelope/coefu/calculsparois.h"
#include "workbook/nombres.h"
#include "workbook/userinterface.h"

namespace thermique {

namespace C = ColonneParoi;

namespace {

const char *const typesParois[] = {
    "Mur Ext.",
    "Mur Int.",
    "Mur Ent.",
    "Plan. TP, isol. continue.",
    "Plan. TP, isol. péri. hor.",
    "Plan. TP, isol. péri. vert.",
    "Plan. sur VS.",
    "Plan. sur Sous-Sol.",
    "Plan. de Sous-Sol CH.",
    "Plan. sur Ext.",
    "Plaf. sous  Terr.",
    "Plaf. sous Comble.",
    "Plaf. sous Ramp.",
    "Fen. Porte et Porte-fen.",
    "Plan. sur local chauffé, (sans calorifuites).",
    "Plaf. sous local chauffé, (sans calorifuites).",
};

// Blocks of plain layers: code, tint, outer and inner surface resistances with their labels.
struct TypeSimple
{
    const char *type;
    const char *code;
    const char *teinte;
    const char *sortie;
    double rse;
    const char *entree;
    double rsi;
};

constexpr TypeSimple typesSimples[] = {
    {"Mur Ext.", "A1", "Moyen", "Résistance de sortie mur extérieur", 0.040,
     "Résistance d'entrée mur extérieur", 0.130},
    {"Mur Int.", "A1", "", "Résistance de sortie mur intérieur", 0.130,
     "Résistance d'entrée mur intérieur", 0.130},
    {"Mur Ent.", "A1", "", "Résistance de sortie mur intérieur", 0.130,
     "Résistance d'entrée mur intérieur", 0.130},
    {"Plan. sur VS.", "A4", "", "Résistance de sortie Plan. VS", 0.170,
     "Résistance d'entrée Plan. VS", 0.170},
    {"Plan. sur Sous-Sol.", "A4", "", "Résistance de sortie plancher sur sous-sol", 0.170,
     "Résistance d'entrée plancher sur sous-sol", 0.170},
    {"Plan. sur Ext.", "A4", "", "Résistance de sortie Plan. Ext.", 0.040,
     "Résistance d'entrée Plan. Ext.", 0.170},
    {"Plaf. sous  Terr.", "A3", "Moyen", "Résistance de sortie plafond sous terrasse", 0.040,
     "Résistance d'entrée plafond sous terrasse", 0.100},
    {"Plaf. sous Comble.", "A2", "", "Résistance de sortie plafond sous comble", 0.100,
     "Résistance d'entrée plafond sous comble", 0.100},
    {"Plaf. sous Ramp.", "A2", "Moyen", "Résistance de sortie plafond sous rampant", 0.040,
     "Résistance d'entrée plafond sous rampant", 0.100},
    // Floors and ceilings towards heated rooms have no loss; they take the interior values.
    {"Plan. sur local chauffé, (sans calorifuites).", "A4", "",
     "Résistance de sortie plancher sur local chauffé", 0.170,
     "Résistance d'entrée plancher sur local chauffé", 0.170},
    {"Plaf. sous local chauffé, (sans calorifuites).", "A2", "",
     "Résistance de sortie plafond sous local chauffé", 0.100,
     "Résistance d'entrée plafond sous local chauffé", 0.100},
};

const TypeSimple *typeSimple(const QString &type)
{
    for (const TypeSimple &t : typesSimples)
        if (type == QString::fromUtf8(t.type))
            return &t;
    return nullptr;
}

const QString sortieSol = QStringLiteral("Résistance de sortie contact avec le sol");
const QString entreeSol = QStringLiteral("Résistance d'entrée contact avec le sol");
const QString libelleAire = QStringLiteral("Aire du plancher en contact avec le sol");
const QString libellePerimetre = QStringLiteral("Périmètre du plancher mesuré côté int.");
const QString libelleEpaisseur = QStringLiteral("Epai. mur sup., toutes couches comprises");
const QString libelleAssise
    = QStringLiteral("Profondeur d'assise du plancher par rapport au sol environnant");
const QString libelleSol = QStringLiteral("Conductivité thermique du sol non gelé");
const QString libelleComposition = QStringLiteral("Composition du plancher en partie courante");
const QString libelleProfondeur = QStringLiteral("Profondeur moyenne au-dessous du sol");
const QString natureHorizontale = QStringLiteral("Nature de l'isolation périphérique horizontale");
const QString largeurHorizontale
    = QStringLiteral("Largeur de l'isolation périphérique horizontale");
const QString natureVerticale = QStringLiteral("Nature de l'isolation périphérique verticale");
const QString hauteurVerticale = QStringLiteral("Hauteur de l'isolation périphérique verticale");
const QString enteteFenetre = QStringLiteral("Coefficient des profils");
const QString lameAir = QStringLiteral("Lame d'air");

QString formatR(double v)
{
    return Format(v, QStringLiteral("##0.000"));
}

QString texte(const Grid &g, int r, int c)
{
    return g.text(r, c);
}

bool blanc(const Grid &g, int r, int c)
{
    return g.text(r, c).trimmed().isEmpty();
}

double valeur(const Grid &g, int r, int c)
{
    return ValNombre(g.text(r, c));
}

// A row that a user filled as a layer: a name, a thickness, a conductivity or a resistance.
bool estCouche(const Grid &g, int r)
{
    for (int c : {C::Libelle, C::Epaisseur, C::Conductivite, C::Resistance})
        if (!blanc(g, r, c))
            return true;
    return false;
}

// R = d/λ on a layer row when both are there; a typed R alone is kept.
void calculerResistanceCouche(Grid &g, int r)
{
    if (blanc(g, r, C::Epaisseur) || blanc(g, r, C::Conductivite))
        return;
    const double lambda = valeur(g, r, C::Conductivite);
    if (lambda == 0)
        return;
    g.setText(r, C::Resistance,
              Format(valeur(g, r, C::Epaisseur) / lambda, QStringLiteral("#0.000")));
    g.setOperation(r, C::Resistance, QString());
}

// First row of (debut, fin) whose label starts with `libelle`.
std::optional<int> chercherLibelle(const Grid &g, int debut, int fin, const QString &libelle)
{
    for (int r = debut; r <= fin && r < g.rows(); ++r)
        if (texte(g, r, C::Libelle).startsWith(libelle))
            return r;
    return std::nullopt;
}

void ecrireResultat(Grid &g, int tete, int ligne, std::optional<double> u)
{
    const QString t = u ? Format(*u, QStringLiteral("#0.00")) : QString();
    for (int r : {ligne, tete}) {
        g.setText(r, C::UJour, t);
        g.setText(r, C::UNuit, t);
    }
}

void ecrireFacteurSolaire(Grid &g, int tete)
{
    const auto k = FacteurTeinte(texte(g, tete, C::Teinte));
    if (!k || blanc(g, tete, C::UJour))
        return;
    g.setText(tete, C::FacteurSolaire,
              Format(FacteurSolaire(valeur(g, tete, C::UJour), *k), QStringLiteral("0.00")));
}

void calculParoiSimple(ContexteParois &ctx, int tete, int entree, const QString &type)
{
    Grid &g = ctx.grille;
    g.setText(tete, C::Resistance, texte(g, tete, C::ResistanceSuperficielle));
    if (!blanc(g, entree, C::ResistanceSuperficielle))
        g.setText(entree, C::Resistance, texte(g, entree, C::ResistanceSuperficielle));
    double somme = valeur(g, tete, C::ResistanceSuperficielle);
    for (int r = tete + 1; r <= entree; ++r) {
        if (!texte(g, r, C::Libelle).startsWith(libelleProfondeur))
            calculerResistanceCouche(g, r);
        somme += valeur(g, r, C::Resistance);
    }
    const int resultat = entree + 1;
    if (resultat >= g.rows())
        g.setRows(resultat + 1);
    if (const auto u = CoefficientU(somme)) {
        g.setText(resultat, C::Resistance, Format(somme, QStringLiteral("#0.000")));
        std::optional<double> uFinal = *u;
        if (type == QStringLiteral("Mur Ent."))
            if (const auto p = chercherLibelle(g, tete + 1, entree - 1, libelleProfondeur))
                if (const auto enterre = UParoiEnterree(valeur(g, *p, C::Epaisseur), somme))
                    uFinal = enterre;
        ecrireResultat(g, tete, resultat, uFinal);
    }

    const bool sansDephasage = type == QStringLiteral("Mur Ent.")
        || type == QStringLiteral("Mur Int.") || type.startsWith(QStringLiteral("Plan"));
    if (!sansDephasage) {
        QVector<CoucheDephasage> couches;
        for (int r = tete + 1; r < entree; ++r) {
            if (!estCouche(g, r) || texte(g, r, C::Libelle).startsWith(lameAir))
                continue;
            couches.append(
                {texte(g, r, C::Cache), valeur(g, r, C::Epaisseur), valeur(g, r, C::Conductivite)});
        }
        g.setText(resultat, C::Libelle, TexteDephasage(DephasageMinutes(couches)));
    }
    ecrireFacteurSolaire(g, tete);
}

void calculPlancherSurSol(ContexteParois &ctx, int tete, int entree, const QString &type)
{
    Grid &g = ctx.grille;
    g.setText(tete, C::Resistance, texte(g, tete, C::ResistanceSuperficielle));
    if (!blanc(g, entree, C::ResistanceSuperficielle))
        g.setText(entree, C::Resistance, texte(g, entree, C::ResistanceSuperficielle));

    const bool horizontale = type == QStringLiteral("Plan. TP, isol. péri. hor.");
    const bool verticale = type == QStringLiteral("Plan. TP, isol. péri. vert.");
    const bool sousSol = type == QStringLiteral("Plan. de Sous-Sol CH.");
    int resultat = entree + 1;
    std::optional<int> nature, dimension;
    if (horizontale || verticale) {
        nature = chercherLibelle(g, entree + 1, g.rows() - 1,
                                 horizontale ? natureHorizontale : natureVerticale);
        if (nature)
            dimension = chercherLibelle(g, *nature + 1, g.rows() - 1,
                                        horizontale ? largeurHorizontale : hauteurVerticale);
        if (!dimension)
            return;
        resultat = *dimension + 1;
    }
    if (resultat >= g.rows())
        g.setRows(resultat + 1);

    const int debutCouches
        = chercherLibelle(g, tete + 1, entree - 1, libelleComposition).value_or(tete);
    double rf = 0;
    for (int r = debutCouches + 1; r < entree; ++r) {
        calculerResistanceCouche(g, r);
        rf += valeur(g, r, C::Resistance);
    }
    const double rt = 0.17 + rf;
    g.setText(resultat, C::Resistance, Format(rt, QStringLiteral("#0.000")));

    // Every dimension of the floor is needed; one missing leaves the floor without U.
    const auto cellule = [&](const QString &libelle) -> std::optional<int> {
        const auto r = chercherLibelle(g, tete + 1, entree - 1, libelle);
        if (!r || blanc(g, *r, C::Epaisseur))
            return std::nullopt;
        return r;
    };
    const auto aire = cellule(libelleAire);
    const auto perimetre = cellule(libellePerimetre);
    const auto mur = cellule(libelleEpaisseur);
    const auto sol = cellule(libelleSol);
    const auto assise = sousSol ? cellule(libelleAssise) : std::optional<int>(tete);
    if (!aire || !perimetre || !mur || !sol || !assise) {
        ecrireResultat(g, tete, resultat, std::nullopt);
        return;
    }
    const double lambdaSol = valeur(g, *sol, C::Epaisseur);
    const auto bPrime = DimensionCaracteristique(valeur(g, *aire, C::Epaisseur),
                                                 valeur(g, *perimetre, C::Epaisseur));
    double dt = EpaisseurEquivalente(valeur(g, *mur, C::Epaisseur), lambdaSol, rt);
    if (sousSol) {
        double z = valeur(g, *assise, C::Epaisseur);
        if (z < 0) {
            z = 0;
            g.setText(*assise, C::Epaisseur, QStringLiteral("0"));
            g.setOperation(*assise, C::Epaisseur, QString());
        }
        dt += z / 2;
    }
    std::optional<double> u = bPrime ? UPlancherBase(*bPrime, dt, lambdaSol) : std::nullopt;
    if (u && nature && dimension) {
        double rn = 0;
        double sommeD = 0;
        for (int r = *nature + 1; r < *dimension; ++r) {
            calculerResistanceCouche(g, r);
            rn += valeur(g, r, C::Resistance);
            sommeD += valeur(g, r, C::Epaisseur);
        }
        const double dPrime = lambdaSol * rn - sommeD;
        const auto psi = PsiIsolationPeripherique(lambdaSol, dt, dPrime,
                                                  valeur(g, *dimension, C::Epaisseur), verticale);
        if (psi)
            *u += 2 * *psi / *bPrime;
    }
    ecrireResultat(g, tete, resultat, u);
}

void ecrireTete(ContexteParois &ctx, int ligne, const QString &type, const QString &code,
                const QString &teinte, const QString &libelle, double rse)
{
    Grid &g = ctx.grille;
    if (blanc(g, ligne, C::Cle)) {
        ++ctx.compteurParois;
        g.setText(ligne, C::Cle, Format(ctx.compteurParois, QStringLiteral("0000")));
    }
    g.setText(ligne, C::Nom, type);
    g.setText(ligne, C::Teinte, teinte);
    g.setText(ligne, C::Code, code);
    g.setText(ligne, C::Libelle, libelle);
    g.setText(ligne, C::ResistanceSuperficielle, formatR(rse));
    g.setText(ligne, C::Resistance, formatR(rse));
    g.setText(ligne, C::Cache, type);
    if (teinte.isEmpty())
        PeindreLigneParoi(ctx, ligne, {C::Nom, C::ResistanceSuperficielle});
    else
        PeindreLigneParoi(ctx, ligne, {C::Nom, C::Teinte, C::ResistanceSuperficielle});
}

void ecrireEntree(ContexteParois &ctx, int ligne, const QString &libelle, double rsi)
{
    Grid &g = ctx.grille;
    g.setText(ligne, C::Libelle, libelle);
    g.setText(ligne, C::ResistanceSuperficielle, formatR(rsi));
    g.setText(ligne, C::Resistance, formatR(rsi));
    PeindreLigneParoi(ctx, ligne, {C::ResistanceSuperficielle});
}

void ecrireDonnee(ContexteParois &ctx, int ligne, const QString &libelle)
{
    ctx.grille.setText(ligne, C::Libelle, libelle);
    PeindreLigneParoi(ctx, ligne, {C::Epaisseur});
}

void ecrireTitre(ContexteParois &ctx, int ligne, const QString &libelle)
{
    ctx.grille.setText(ligne, C::Libelle, libelle);
    PeindreLigneParoi(ctx, ligne, {});
}

void ecrireCouche(ContexteParois &ctx, int ligne)
{
    PeindreLigneParoi(ctx, ligne, {C::Libelle, C::Epaisseur, C::Conductivite, C::Resistance});
}

} // namespace

const QStringList &TypesParois()
{
    static const QStringList types = [] {
        QStringList l;
        for (const char *t : typesParois)
            l << QString::fromUtf8(t);
        return l;
    }();
    return types;
}

QString TypeFenetre()
{
    return QStringLiteral("Fen. Porte et Porte-fen.");
}

bool EstPlancherSurSol(const QString &type)
{
    return type.startsWith(QStringLiteral("Plan. TP,"))
        || type == QStringLiteral("Plan. de Sous-Sol CH.");
}

bool EstLigneEntree(const QString &libelle)
{
    return libelle.startsWith(QStringLiteral("Résistance d'entrée"));
}

bool EstLigneSortie(const QString &libelle)
{
    return libelle.startsWith(QStringLiteral("Résistance de sortie"));
}

int NombreLignesBloc(const QString &type, const ExtensionFenetres *fenetres)
{
    if (type == TypeFenetre())
        return fenetres ? fenetres->lignes : 18;
    if (type == QStringLiteral("Plan. TP, isol. continue."))
        return 10;
    if (type == QStringLiteral("Plan. de Sous-Sol CH."))
        return 11;
    if (EstPlancherSurSol(type))
        return 14;
    return 6;
}

void PeindreLigneParoi(ContexteParois &ctx, int ligne, std::initializer_list<int> saisies)
{
    for (int c = 1; c <= C::UNuit; ++c) {
        Cell *p = ctx.grille.cellPtr(ligne, c);
        if (!p)
            return;
        const bool saisie = std::find(saisies.begin(), saisies.end(), c) != saisies.end();
        p->attributs.couleurFond = saisie ? ctx.couleurSaisie : ctx.couleurVerrouillee;
    }
}

bool EcrireBloc(ContexteParois &ctx, int ligne, const QString &type)
{
    Grid &g = ctx.grille;
    const int n = NombreLignesBloc(type, ctx.fenetres);
    if (ligne < g.fixedRows)
        return false;
    // Free rows stay below the new block for the next one.
    if (ligne + n + 10 > g.rows())
        g.setRows(ligne + n + 10);

    if (type == TypeFenetre()) {
        if (!ctx.fenetres || !ctx.fenetres->ecrireBloc)
            return false;
        ctx.fenetres->ecrireBloc(ctx, ligne);
        return true;
    }
    if (const TypeSimple *t = typeSimple(type)) {
        ecrireTete(ctx, ligne, type, QString::fromUtf8(t->code), QString::fromUtf8(t->teinte),
                   QString::fromUtf8(t->sortie), t->rse);
        for (int r = ligne + 1; r <= ligne + 3; ++r)
            ecrireCouche(ctx, r);
        if (type == QStringLiteral("Mur Ent."))
            ecrireDonnee(ctx, ligne + 3, libelleProfondeur);
        ecrireEntree(ctx, ligne + 4, QString::fromUtf8(t->entree), t->rsi);
        PeindreLigneParoi(ctx, ligne + 5, {});
        CalculU(ctx, ligne, false);
        return true;
    }
    if (!EstPlancherSurSol(type))
        return false;

    ecrireTete(ctx, ligne, type, QStringLiteral("A4"), QString(), sortieSol, 0.170);
    int r = ligne + 1;
    for (const QString &l : {libelleAire, libellePerimetre, libelleEpaisseur})
        ecrireDonnee(ctx, r++, l);
    if (type == QStringLiteral("Plan. de Sous-Sol CH."))
        ecrireDonnee(ctx, r++, libelleAssise);
    ecrireDonnee(ctx, r++, libelleSol);
    ecrireTitre(ctx, r++, libelleComposition);
    ecrireCouche(ctx, r++);
    ecrireCouche(ctx, r++);
    ecrireEntree(ctx, r++, entreeSol, 0.170);
    const bool horizontale = type == QStringLiteral("Plan. TP, isol. péri. hor.");
    if (horizontale || type == QStringLiteral("Plan. TP, isol. péri. vert.")) {
        ecrireTitre(ctx, r++, horizontale ? natureHorizontale : natureVerticale);
        ecrireCouche(ctx, r++);
        ecrireCouche(ctx, r++);
        ecrireDonnee(ctx, r++, horizontale ? largeurHorizontale : hauteurVerticale);
    }
    PeindreLigneParoi(ctx, r, {});
    CalculU(ctx, ligne, false);
    return true;
}

std::optional<int> ChercherEntêteParoi(const Grid &g, int ligne)
{
    for (int r = std::min(ligne, g.rows() - 1); r >= g.fixedRows; --r) {
        const QString libelle = texte(g, r, C::Libelle);
        if (EstLigneSortie(libelle) || libelle.startsWith(enteteFenetre))
            return r;
        // A results row above means the start row lies outside any block.
        if (!blanc(g, r, C::UJour) && !libelle.startsWith(QStringLiteral("Profondeur"))
            && !libelle.startsWith(QStringLiteral("Coefficients")))
            return std::nullopt;
    }
    return std::nullopt;
}

QString TypeBloc(const Grid &g, int tete)
{
    const QString cache = texte(g, tete, C::Cache).trimmed();
    if (TypesParois().contains(cache))
        return cache;
    // The name was typed over the type: the type is still its start.
    const QString nom = texte(g, tete, C::Nom);
    QString meilleur;
    for (const QString &t : TypesParois())
        if (nom.startsWith(t) && t.size() > meilleur.size())
            meilleur = t;
    return meilleur;
}

std::optional<int> LigneEntree(const Grid &g, int tete)
{
    for (int r = tete + 1; r < g.rows(); ++r) {
        const QString libelle = texte(g, r, C::Libelle);
        if (EstLigneEntree(libelle))
            return r;
        if (EstLigneSortie(libelle) || libelle.startsWith(enteteFenetre))
            return std::nullopt;
    }
    return std::nullopt;
}

bool CalculU(ContexteParois &ctx, int ligne, bool messages)
{
    const Grid &g = ctx.grille;
    const auto tete = ChercherEntêteParoi(g, ligne);
    if (!tete) {
        if (messages)
            ctx.ui.message(QStringLiteral("La sélection dans la colonne 1 de la ligne en cours "
                                          "est incorrecte !\r\nLe calcul ne peut pas être "
                                          "poursuivi.\r\nVoir l'aide en bas de page concernant "
                                          "la colonne 1."),
                           MessageExclamation, QStringLiteral("Termique."));
        return false;
    }
    if (texte(g, *tete, C::Libelle).startsWith(enteteFenetre)) {
        if (ctx.fenetres && ctx.fenetres->calculer)
            ctx.fenetres->calculer(ctx, *tete);
        return true;
    }
    const auto entree = LigneEntree(g, *tete);
    if (!entree)
        return false;
    const QString type = TypeBloc(g, *tete);
    if (EstPlancherSurSol(type))
        calculPlancherSurSol(ctx, *tete, *entree, type);
    else
        calculParoiSimple(ctx, *tete, *entree, type);
    return true;
}

int FinBloc(const Grid &g, int tete)
{
    if (texte(g, tete, C::Libelle).startsWith(enteteFenetre)) {
        const auto fin = chercherLibelle(g, tete + 1, g.rows() - 1,
                                         QStringLiteral("Coefficients de la fenêtre"));
        return fin.value_or(tete);
    }
    const auto entree = LigneEntree(g, tete);
    if (!entree)
        return tete;
    const QString type = TypeBloc(g, tete);
    QString dimension;
    if (type == QStringLiteral("Plan. TP, isol. péri. hor."))
        dimension = largeurHorizontale;
    else if (type == QStringLiteral("Plan. TP, isol. péri. vert."))
        dimension = hauteurVerticale;
    if (!dimension.isEmpty()) {
        const auto d = chercherLibelle(g, *entree + 1, g.rows() - 1, dimension);
        return d ? std::min(*d + 1, g.rows() - 1) : tete;
    }
    return std::min(*entree + 1, g.rows() - 1);
}

void PeindreBloc(ContexteParois &ctx, int tete)
{
    const Grid &g = ctx.grille;
    if (texte(g, tete, C::Libelle).startsWith(enteteFenetre))
        return;
    const int fin = FinBloc(g, tete);
    if (fin == tete)
        return;
    if (blanc(g, tete, C::Teinte))
        PeindreLigneParoi(ctx, tete, {C::Nom, C::ResistanceSuperficielle});
    else
        PeindreLigneParoi(ctx, tete, {C::Nom, C::Teinte, C::ResistanceSuperficielle});
    const QString donnees[]
        = {libelleAire, libellePerimetre,  libelleEpaisseur,   libelleAssise,
           libelleSol,  libelleProfondeur, largeurHorizontale, hauteurVerticale};
    for (int r = tete + 1; r < fin; ++r) {
        const QString l = texte(g, r, C::Libelle);
        if (EstLigneEntree(l))
            PeindreLigneParoi(ctx, r, {C::ResistanceSuperficielle});
        else if (std::any_of(std::begin(donnees), std::end(donnees),
                             [&](const QString &d) { return l.startsWith(d); }))
            PeindreLigneParoi(ctx, r, {C::Epaisseur});
        else if (l.startsWith(libelleComposition) || l.startsWith(natureHorizontale)
                 || l.startsWith(natureVerticale))
            PeindreLigneParoi(ctx, r, {});
        else
            ecrireCouche(ctx, r);
    }
    PeindreLigneParoi(ctx, fin, {});
}

void CalculFeuilleU(ContexteParois &ctx)
{
    for (int r = ctx.grille.fixedRows; r < ctx.grille.rows(); ++r) {
        const QString libelle = texte(ctx.grille, r, C::Libelle);
        if (EstLigneSortie(libelle) || libelle.startsWith(enteteFenetre))
            CalculU(ctx, r, false);
    }
}

namespace {

struct GroupeCouleurs
{
    const char *valeur;
    const char *couleurs[4];
};

constexpr GroupeCouleurs groupesCouleurs[] = {
    {"0.40", {"Blanc", "Jaune", "Orange", "Rouge clair"}},
    {"0.60", {"Rouge sombre", "Vert clair", "Bleu clair", nullptr}},
    {"0.80", {"Brun", "Vert sombre", "Bleu vif", nullptr}},
    {"1.00", {"Noir", "Brun sombre", "Bleu sombre", nullptr}},
};

bool valeurAbsorption(const QString &valeur)
{
    for (const GroupeCouleurs &g : groupesCouleurs)
        if (valeur.trimmed() == QLatin1String(g.valeur))
            return true;
    return false;
}

} // namespace

QStringList ListeTeintes(const QString &valeur)
{
    QStringList liste;
    if (!valeurAbsorption(valeur))
        return {QStringLiteral("Clair"), QStringLiteral("Moyen"), QStringLiteral("Sombre"),
                QStringLiteral("Noir")};
    for (const GroupeCouleurs &g : groupesCouleurs)
        for (const char *c : g.couleurs)
            if (c)
                liste << QString::fromUtf8(c);
    return liste;
}

QString ChoixTeinte(const QString &valeur, int index)
{
    const QStringList liste = ListeTeintes(valeur);
    if (index < 0 || index >= liste.size())
        return valeur;
    if (!valeurAbsorption(valeur))
        return liste[index];
    int i = 0;
    for (const GroupeCouleurs &g : groupesCouleurs)
        for (const char *c : g.couleurs)
            if (c && i++ == index)
                return QString::fromUtf8(g.valeur);
    return valeur;
}

} // namespace thermique
