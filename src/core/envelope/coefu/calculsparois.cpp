#include "envelope/coefu/calculsparois.h"

#include "workbook/nombres.h"

#include <QStringList>

#include <cmath>

namespace thermique {

std::optional<double> CoefficientU(double sommeR)
{
    if (sommeR == 0 || !std::isfinite(sommeR))
        return std::nullopt;
    return 1 / sommeR;
}

std::optional<double> FacteurTeinte(const QString &teinte)
{
    struct Teinte
    {
        const char *nom;
        double k;
    };
    static constexpr Teinte teintes[]
        = {{"Clair", 0.1}, {"Moyen", 0.5}, {"Sombre", 0.7}, {"Noir", 0.9}};
    const QString t = teinte.trimmed();
    if (t.isEmpty())
        return std::nullopt;
    for (const Teinte &e : teintes)
        if (t == QLatin1String(e.nom))
            return e.k;
    // An absorption code typed in place of a tint.
    if (t.at(0).isDigit() || t.at(0) == QLatin1Char('.'))
        return ValNombre(t);
    return std::nullopt;
}

double FacteurSolaire(double u, double k)
{
    return u * k / 7.6923;
}

double MasseVolumiqueComposant(const QString &texte)
{
    const QStringList bornes = texte.split(QStringLiteral("à"));
    if (bornes.size() == 2)
        return (ValNombre(bornes[0]) + ValNombre(bornes[1])) / 2;
    return ValNombre(texte);
}

std::optional<double> DephasageMinutes(const QVector<CoucheDephasage> &couches)
{
    double minutes = 0;
    for (const CoucheDephasage &c : couches) {
        const QStringList champs = c.composant.split(QStringLiteral("£"));
        if (c.composant.trimmed().isEmpty() || champs.size() < 3 || champs[0].trimmed().isEmpty()
            || champs[1].trimmed().isEmpty())
            return std::nullopt;
        const double rho = MasseVolumiqueComposant(champs[0]);
        const double chaleur = ValNombre(champs[1]) / 3600;
        if (rho * chaleur * c.conductivite * c.epaisseur > 0)
            minutes += 1.38 * c.epaisseur * std::sqrt(rho * chaleur / c.conductivite) * 60;
    }
    return minutes;
}

QString TexteDephasage(std::optional<double> minutes)
{
    const QString titre = QStringLiteral("Déphasage thermique de la paroi : ");
    if (!minutes)
        return titre + QStringLiteral("Non déterminé.");
    double reste = *minutes;
    double jours = 0;
    double heures = 0;
    // Only what is above a day makes days, so 1440 minutes read as 24 hours.
    if (reste > 1440) {
        jours = Int(reste / 1440);
        reste -= jours * 1440;
    }
    if (reste > 60) {
        heures = Int(reste / 60);
        reste -= heures * 60;
    }
    const double mn = Int(reste);
    QString texte = titre;
    if (jours != 0)
        texte += TexteNombre(jours) + QStringLiteral(" j ");
    if (heures != 0)
        texte += TexteNombre(heures) + QStringLiteral(" h ");
    if (mn != 0)
        texte += TexteNombre(mn) + QStringLiteral(" mn");
    return texte;
}

std::optional<double> UParoiEnterree(double z, double resistanceTotale)
{
    if (!(z > 0) || !(resistanceTotale > 0))
        return std::nullopt;
    const double dw = 2 * resistanceTotale;
    return ((2.0 * 2.0) / (PiParois * z)) * (1 + (0.5 * dw) / (dw + z)) * std::log(z / dw + 1);
}

std::optional<double> DimensionCaracteristique(double aire, double perimetre)
{
    if (!(perimetre > 0))
        return std::nullopt;
    return aire / (perimetre / 2);
}

double EpaisseurEquivalente(double epaisseurMur, double lambdaSol, double rTotale)
{
    return epaisseurMur + lambdaSol * rTotale;
}

std::optional<double> UPlancherBase(double bPrime, double dt, double lambdaSol)
{
    if (!(bPrime > 0) || !(dt > 0))
        return std::nullopt;
    if (dt < bPrime)
        return (2 * lambdaSol / (PiParois * bPrime + dt)) * std::log(PiParois * bPrime / dt + 1);
    return lambdaSol / (0.457 * bPrime + dt);
}

std::optional<double> PsiIsolationPeripherique(double lambdaSol, double dt, double dPrime, double d,
                                               bool verticale)
{
    if (!(dt > 0) || !(dt + dPrime > 0) || d < 0)
        return std::nullopt;
    const double largeur = verticale ? 2 * d : d;
    return -(lambdaSol / PiParois)
        * (std::log(largeur / dt + 1) - std::log(largeur / (dt + dPrime) + 1));
}

double CoefficientRayonnementNoir(double temperatureMoyenne)
{
    return 4 * 5.67e-8 * std::pow(temperatureMoyenne + 273.15, 3);
}

double CoefficientConvectionExterieur(double vitesseVent)
{
    return 4 + 4 * vitesseVent;
}

std::optional<double> ResistanceSuperficielle(double hc, double hr)
{
    if (!(hc + hr > 0))
        return std::nullopt;
    return 1 / (hc + hr);
}

std::optional<double> ResistanceLameAir(double x, VentilationLame ventilation, FluxLame flux)
{
    if (!(x > 0 && x < 0.301) || ventilation == VentilationLame::FortementVentilee)
        return std::nullopt;
    const double f = ventilation == VentilationLame::NonVentilee ? 1 : 0.5;
    switch (flux) {
    case FluxLame::Haut:
        return (1 - std::exp(-238.82660788 * x)) * 0.161154856967 * f;
    case FluxLame::Horizontal:
        return (1 - std::exp(-184.133198261 * x)) * 0.180401649775 * f;
    case FluxLame::Bas: {
        const double terme = -5.18236945535 * x;
        return ((42.1418412071 * x - 5.45585688854e-5) / (1 + 181.534926749 * x + terme * terme))
            * f;
    }
    }
    return std::nullopt;
}

} // namespace thermique
