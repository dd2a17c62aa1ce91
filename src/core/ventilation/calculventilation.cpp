#include "calculventilation.h"

#include "feuilleventilation.h"

#include "administratif/feuilleadministrative.h"
#include "climate/basehiver.h"
#include "workbook/classeur.h"
#include "workbook/grid.h"
#include "workbook/nombres.h"

#include <algorithm>
#include <cmath>

namespace thermique {

namespace {

const char *const hauteurs[] = {"< 6 m", "6 à 18 m", "18 à 28 m", "28 à 50 m", "50 à 100 m"};

// Exposure classes by height (rows) and site a to d (columns); 0 where the table has none.
constexpr int classesAbriteV[5][2] = {{1, 1}, {1, 1}, {1, 1}, {0, 0}, {0, 0}};
constexpr int classesV[5][4]
    = {{1, 1, 1, 2}, {1, 1, 2, 3}, {2, 2, 2, 4}, {2, 2, 3, 4}, {3, 3, 3, 4}};
constexpr int classesW[5][4]
    = {{2, 2, 2, 2}, {2, 2, 3, 3}, {3, 3, 4, 4}, {3, 3, 4, 4}, {4, 4, 4, 4}};

// e for one exposed facade, then for several, by class.
const char *const coefficientsE[4][2]
    = {{"0.15", "0.50"}, {"0.25", "0.85"}, {"0.35", "1.10"}, {"0.40", "1.35"}};

bool estTexte(const QString &texte, const char *modele)
{
    return texte == QString::fromUtf8(modele);
}

} // namespace

int ClasseExposition(const QString &hauteur, const QString &region, bool abrite, QChar site)
{
    int h = -1;
    for (int i = 0; i < 5; ++i)
        if (hauteur == QString::fromUtf8(hauteurs[i]))
            h = i;
    const int s = site.unicode() - u'a';
    if (h < 0 || s < 0 || s > 3)
        return 0;
    if (region == QLatin1String("V"))
        return abrite ? (s < 2 ? classesAbriteV[h][s] : 0) : classesV[h][s];
    if (region == QLatin1String("W"))
        return abrite ? 0 : classesW[h][s];
    return 0;
}

CoefficientsVent CoefficientsExposition(int classe, bool uneSeuleFacade)
{
    if (classe < 1 || classe > 4)
        return {};
    CoefficientsVent c;
    c.e = QString::fromLatin1(coefficientsE[classe - 1][uneSeuleFacade ? 0 : 1]);
    c.d = uneSeuleFacade ? QStringLiteral("1.55") : QStringLiteral("1.15");
    c.a = uneSeuleFacade ? QStringLiteral("1") : QStringLiteral("2");
    return c;
}

double DebitSupplementaire(double e, double d, double ecart, double permeabilite)
{
    if (permeabilite <= 0 || e == 0)
        return 0;
    const double rapport = ecart / permeabilite;
    return (e / (1 + (d / e) * rapport * rapport)) * permeabilite;
}

PermeabiliteLocaux LirePermeabilite(const Grid &pertes)
{
    PermeabiliteLocaux p;
    for (int r = 1; r < pertes.rows(); ++r) {
        const QString code = pertes.text(r, 0);
        if (code == QLatin1String("TableauLigneCalculParoi")) {
            const QString lieu = pertes.text(r, 9).trimmed();
            const double m = ValNombre(pertes.text(r, 10));
            // Joinery leaks through its opening parts, the other walls through their area.
            if (lieu == QLatin1String("A6") || lieu == QLatin1String("A7"))
                p.permeabilite += m * ValNombre(pertes.text(r, 37)) * ValNombre(pertes.text(r, 21));
            else
                p.permeabilite += m * ValNombre(pertes.text(r, 15));
        } else if (code == QStringLiteral("TableauLigneRésultats")) {
            p.permeabilite += ValNombre(pertes.text(r, 11));
            p.surface += ValNombre(pertes.text(r, 2));
            p.qi += ValNombre(pertes.text(r, 13));
        }
    }
    return p;
}

void CoefficientsMajorateurs(const QString &systeme, double &a, double &b)
{
    a = 0;
    b = 0;
    if (systeme.startsWith(QLatin1String("Simple flux"))
        || systeme.startsWith(QLatin1String("Double flux"))) {
        a = 1.8;
        b = 1;
    } else if (systeme.startsWith(QLatin1String("Naturel."))) {
        a = 1.8;
        b = 2.2;
    }
}

ResultatsDebits CalculerDebits(const EntreesDebits &x)
{
    ResultatsDebits r;
    double qmax = x.extraitMaxi;
    double qmin = x.extraitMini;
    // A supply larger than the extract sets the flow of the zone.
    if (x.soufleMaxi > qmax)
        qmax = x.soufleMaxi;
    if (x.soufleMini > qmin)
        qmin = x.soufleMini;
    CoefficientsMajorateurs(x.systeme, r.a, r.b);

    if (x.logement) {
        if (qmax == qmin)
            r.commande = QStringLiteral("Néant.");
        else if (x.commande != QLatin1String("Automatique."))
            r.commande = QStringLiteral("Manuelle.");
        else
            r.commande = x.commande;
        r.cd = r.commande == QLatin1String("Automatique.") ? 1.0 / 24
            : r.commande == QLatin1String("Manuelle.")     ? 1.0 / 12
                                                           : 1.0;
        if (qmax + qmin > 0) {
            r.qvMaxi = (1 - r.cd) * qmin + r.cd * qmax;
            r.qsMaxi = DebitSupplementaire(x.e, x.d, r.qvMaxi - x.qi, x.permeabilite);
        }
        r.debitMaxi = r.b * r.qvMaxi + r.a * r.qsMaxi;
        return r;
    }

    r.commande = qmax == qmin ? QStringLiteral("Néant.") : QStringLiteral("Automatique.");
    r.cd = qmax == qmin ? 1.0 : 1.0 / 24;
    if (qmax > 0 && x.permeabilite > 0.5) {
        r.qvMaxi = qmax;
        r.qsMaxi = DebitSupplementaire(x.e, x.d, qmax - x.soufleMaxi, x.permeabilite);
    }
    if (qmin > 0 && x.permeabilite > 0.5) {
        r.qvMini = qmin;
        r.qsMini = DebitSupplementaire(x.e, x.d, qmin - x.soufleMini, x.permeabilite);
    }
    r.debitMaxi = r.b * r.qvMaxi + r.a * r.qsMaxi;
    r.debitMini = r.b * r.qvMini + r.a * r.qsMini;
    return r;
}

namespace {

int entier(double v)
{
    if (!std::isfinite(v))
        return 0;
    return int(std::lrint(std::clamp(v, -2.0e9, 2.0e9)));
}

QString deuxValeurs(double maxi, double mini, const QString &motif)
{
    return QStringLiteral("Maxi : ") + Format(maxi, motif) + QStringLiteral(" ; Mini : ")
        + Format(mini, motif);
}

} // namespace

void CalculVentilation(Classeur &classeur)
{
    Study &etude = classeur.etude();
    EtatSession &etat = classeur.etat();
    const Grid &admin = etude.flexGrid[0];
    Grid &g = etude.flexGrid[3];
    const bool redessin = g.redraw;
    g.redraw = false;

    // 1-2. Region letter from the town, its department and its altitude.
    const QString localite = admin.text(9, 13);
    const qsizetype separateur = localite.indexOf(QStringLiteral(" - "));
    const QString ville = separateur < 0 ? localite.trimmed() : localite.left(separateur);
    QStringList climat = admin.text(10, 10).split(QLatin1Char('\r'));
    for (QString &ligne : climat)
        ligne.remove(QLatin1Char('\n'));
    etat.LatitudeSite = ValNombre(climat.value(0));
    const QString region
        = LettreReferenceThermique(DepartementLocalite(admin), ValNombre(climat.value(2)), ville);

    // 3-4. The site; exposed sites cannot count on sheltered facades.
    const QString situation = admin.text(13, 13);
    QChar site = situation.size() > 1 ? situation.at(1) : QChar(u' ');
    if (site == u'e')
        site = u'c';
    const bool siteExpose = site == u'c' || site == u'd';
    if (siteExpose)
        EcrireValeurVentilation(g, 13, QStringLiteral("Non."));
    for (int c = 12; c <= 22; ++c)
        g.cellPtr(13, c)->attributs.couleurFond
            = siteExpose ? etat.CouleurVerrouillee : etat.CouleurSaisie;
    const bool abrite = ValeurVentilation(g, 13).left(3) == QLatin1String("Oui");
    const bool uneFacade = estTexte(ValeurVentilation(g, 15), "Une seule façade exposée.");

    // 5-7.
    const int classe = ClasseExposition(ValeurVentilation(g, 12), region, abrite, site);
    const CoefficientsVent vent = CoefficientsExposition(classe, uneFacade);
    if (vent.e.isEmpty()) {
        // No class for this building: the sheet starts again from its initial state.
        ConstruireGrilleVentilation(g, etat.CouleurVerrouillee, etat.CouleurSaisie);
        g.redraw = redessin;
        return;
    }

    // 8. Leakage of the zone.
    const PermeabiliteLocaux locaux = LirePermeabilite(etude.flexGrid[4]);
    const double po = Val(ValeurVentilation(g, 19).right(4));

    EntreesDebits x;
    const QString type = admin.text(12, 13);
    x.logement = estTexte(type, "Maison individuelle.") || estTexte(type, "Bâtiment collectif.");
    x.systeme = ValeurVentilation(g, 2);
    x.commande = ValeurVentilation(g, 7);
    x.extraitMaxi = ValNombre(ValeurVentilation(g, 3));
    x.extraitMini = ValNombre(ValeurVentilation(g, 4));
    x.soufleMaxi = ValNombre(ValeurVentilation(g, 5));
    x.soufleMini = ValNombre(ValeurVentilation(g, 6));
    x.e = Val(vent.e);
    x.d = Val(vent.d);
    x.permeabilite = locaux.permeabilite + po * locaux.surface;
    x.qi = locaux.qi;
    const ResultatsDebits r = CalculerDebits(x);

    EcrireValeurVentilation(g, 7, r.commande);
    EcrireValeurVentilation(g, 10, region);
    EcrireValeurVentilation(g, 11, situation);
    EcrireValeurVentilation(g, 14, QStringLiteral("Ex") + QString::number(classe));
    EcrireValeurVentilation(g, 16, vent.a);
    EcrireValeurVentilation(g, 17, vent.e);
    EcrireValeurVentilation(g, 18, vent.d);
    EcrireValeurVentilation(g, 21, Format(x.permeabilite, QStringLiteral("##,##0")));
    EcrireValeurVentilation(g, 23, TexteNombre(r.a));
    EcrireValeurVentilation(g, 24, TexteNombre(r.b));
    if (x.logement) {
        EcrireValeurVentilation(g, 20, Format(r.qvMaxi, QStringLiteral("###,##0")));
        EcrireValeurVentilation(g, 22, Format(r.qsMaxi, QStringLiteral("##,##0")));
        EcrireValeurVentilation(g, 25, Format(r.debitMaxi, QStringLiteral("##,##0")));
        etat.DebitRenouvellementMaxi = entier(r.debitMaxi);
    } else {
        EcrireValeurVentilation(g, 20, deuxValeurs(r.qvMaxi, r.qvMini, QStringLiteral("###,##0")));
        EcrireValeurVentilation(g, 22, deuxValeurs(r.qsMaxi, r.qsMini, QStringLiteral("##,##0")));
        EcrireValeurVentilation(g, 25,
                                deuxValeurs(r.debitMaxi, r.debitMini, QStringLiteral("##,##0")));
        etat.DebitRenouvellementMaxi = entier(r.debitMaxi);
        etat.DebitRenouvellementMini = entier(r.debitMini);
    }
    g.redraw = redessin;
    classeur.vue().grillesModifiees = true;
}

} // namespace thermique
