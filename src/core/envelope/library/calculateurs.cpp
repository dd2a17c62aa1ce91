#include "envelope/library/calculateurs.h"

#include "envelope/coefu/calculsparois.h"
#include "envelope/coefu/editeurparois.h"
#include "workbook/nombres.h"

namespace thermique {

namespace C = ColonneParoi;

namespace {

const char *const titreInterieur = "Calcul d'une résistance superficielle de face intérieure :";
const char *const titreExterieur = "Calcul d'une résistance superficielle de face extérieure :";

struct Depart
{
    bool entree;
    const char *suite; // compared from character 21 (entry) or 22 (exit)
    bool exterieure;
    const char *tm, *hr0, *emissivite, *hr, *vent, *hc, *r;
};

constexpr Depart departs[] = {
    {true, "mur exté", false, "20", "5.7", "0.9", "5.13", "", "2.5", "0.131"},
    {true, "mur inté", false, "20", "5.7", "0.9", "5.13", "", "2.5", "0.131"},
    {true, "plancher", false, "20", "5.7", "0.9", "5.13", "", "0.7", "0.170"},
    {true, "plafond ", false, "20", "5.7", "0.9", "5.13", "", "5.0", "0.100"},
    {false, "mur inté", false, "20", "5.7", "0.9", "5.13", "", "2.5", "0.130"},
    {false, "plancher sur exté", true, "0", "4.6", "0.9", "4.14", "4", "0.7", "0.040"},
    {false, "plancher sur sous", false, "10", "5.7", "0.9", "5.13", "", "0.7", "0.170"},
    {false, "plancher sur vide", false, "10", "5.7", "0.9", "5.13", "", "0.7", "0.170"},
};

// Rows the table does not name: an inner face as a wall's, an outer face as the Th-U
// exterior face.
constexpr Depart departEntree = departs[0];
constexpr Depart departSortie = {false, "", true, "0", "4.6", "0.9", "4.14", "4", "20.0", "0.040"};

FormulaireResistanceSuperficielle formulaire(const Depart &d)
{
    FormulaireResistanceSuperficielle f;
    f.exterieure = d.exterieure;
    f.titre = QString::fromUtf8(d.exterieure ? titreExterieur : titreInterieur);
    f.temperatureMoyenne = QString::fromUtf8(d.tm);
    f.hr0 = QString::fromUtf8(d.hr0);
    f.emissivite = QString::fromUtf8(d.emissivite);
    f.hr = QString::fromUtf8(d.hr);
    f.vitesseVent = QString::fromUtf8(d.vent);
    f.hc = QString::fromUtf8(d.hc);
    f.resistance = QString::fromUtf8(d.r);
    return f;
}

} // namespace

FormulaireResistanceSuperficielle ValeursDepartResistance(const QString &libelle)
{
    const bool entree = EstLigneEntree(libelle);
    for (const Depart &d : departs) {
        if (d.entree != entree)
            continue;
        const QString suite = QString::fromUtf8(d.suite);
        if (libelle.mid(entree ? 20 : 21, suite.size()) == suite)
            return formulaire(d);
    }
    return formulaire(entree ? departEntree : departSortie);
}

void CalculerResistanceSuperficielle(FormulaireResistanceSuperficielle &f)
{
    // Each field is read back as shown, as the form chains them.
    f.hr0 = Format(CoefficientRayonnementNoir(ValNombre(f.temperatureMoyenne)),
                   QStringLiteral("#0.00"));
    f.hr = Format(ValNombre(f.emissivite) * ValNombre(f.hr0), QStringLiteral("#0.00"));
    if (f.exterieure)
        f.hc = Format(CoefficientConvectionExterieur(ValNombre(f.vitesseVent)),
                      QStringLiteral("#0.0"));
    const auto r = ResistanceSuperficielle(ValNombre(f.hc), ValNombre(f.hr));
    f.resistance = r ? Format(*r, QStringLiteral("0.000")) : QString();
}

void ValiderResistanceSuperficielle(ContexteParois &ctx, int ligne,
                                    const FormulaireResistanceSuperficielle &f)
{
    Grid &g = ctx.grille;
    if (!g.contient(ligne, C::Resistance) || f.resistance.trimmed().isEmpty())
        return;
    g.setText(ligne, C::ResistanceSuperficielle, f.resistance);
    g.setText(ligne, C::Resistance, f.resistance);
    g.setOperation(ligne, C::ResistanceSuperficielle, QString());
    g.setOperation(ligne, C::Resistance, QString());
    CalculU(ctx, ligne);
}

void CalculerLameAir(FormulaireLameAir &f)
{
    if (f.option == 2) {
        for (QString &r : f.resistances)
            r.clear();
        return;
    }
    const double x = ValNombre(f.epaisseur);
    const VentilationLame v
        = f.option == 1 ? VentilationLame::FaiblementVentilee : VentilationLame::NonVentilee;
    const FluxLame flux[] = {FluxLame::Haut, FluxLame::Horizontal, FluxLame::Bas};
    for (int i = 0; i < 3; ++i)
        if (const auto r = ResistanceLameAir(x, v, flux[i]))
            f.resistances[i] = Format(*r, QStringLiteral("0.00"));
}

int FluxPourCode(const QString &code)
{
    const QString c = code.trimmed();
    if (c == QLatin1String("A4"))
        return 2;
    if (c == QLatin1String("A2") || c == QLatin1String("A3"))
        return 0;
    return 1;
}

QString CodeBloc(const ContexteParois &ctx, int ligne)
{
    const Grid &g = ctx.grille;
    for (int r = std::min(ligne, g.rows() - 1); r >= g.fixedRows; --r)
        if (!g.text(r, C::Code).trimmed().isEmpty())
            return g.text(r, C::Code).trimmed();
    return {};
}

void ValiderLameAir(ContexteParois &ctx, int ligne, const FormulaireLameAir &f)
{
    Grid &g = ctx.grille;
    if (!g.contient(ligne, C::Cache))
        return;
    const int option = std::clamp(f.option, 0, 2);
    const int flux = FluxPourCode(CodeBloc(ctx, ligne));
    static const char *const ventilations[]
        = {"non ventilée", "faiblement ventilée", "fortement ventilée"};
    const QString v = QString::fromUtf8(ventilations[option]);
    QString libelle;
    if (flux == 1)
        libelle = QStringLiteral("Lame d'air verticale %1, flux horizontal").arg(v);
    else
        libelle = QStringLiteral("Lame d'air horizontale %1, flux vers le %2")
                      .arg(v, flux == 2 ? QStringLiteral("bas") : QStringLiteral("haut"));
    const double x = ValNombre(f.epaisseur);
    g.setText(ligne, C::Libelle, libelle);
    g.setText(ligne, C::Epaisseur, Format(x, QStringLiteral("0.000")));
    g.setText(ligne, C::Cache, QString());
    for (int c : {C::Epaisseur, C::Conductivite, C::ResistanceSuperficielle, C::Resistance})
        g.setOperation(ligne, c, QString());
    if (option == 2) {
        // A strongly ventilated layer is outside the wall's resistance.
        for (int c : {C::Conductivite, C::ResistanceSuperficielle, C::Resistance})
            g.setText(ligne, c, QString());
    } else {
        const double r = ValNombre(f.resistances[flux]);
        g.setText(ligne, C::Resistance, Format(r, QStringLiteral("0.000")));
        g.setText(ligne, C::Conductivite,
                  r > 0 ? Format(x / r, QStringLiteral("0.000")) : QString());
    }
    CalculU(ctx, ligne);
}

} // namespace thermique
