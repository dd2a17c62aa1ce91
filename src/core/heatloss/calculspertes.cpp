#include "calculspertes.h"

#include "workbook/nombres.h"

#include <algorithm>
#include <cmath>

namespace thermique {

double CorrectionInclinaison(double inclinaison)
{
    const double a = inclinaison == 0 ? 1 : inclinaison;
    return 0.17 - 0.0005 * a + 6.17284e-07 * a * a;
}

std::optional<double> UCorrige(double u, double r2, double rAlpha)
{
    if (!(u > 0))
        return std::nullopt;
    const double r = (1 / u - r2) + rAlpha;
    if (!(r > 0) || !std::isfinite(r))
        return std::nullopt;
    return 1 / r;
}

std::optional<double> ResistanceInterieure(const QString &code)
{
    struct Entree
    {
        const char *code;
        double r;
    };
    static constexpr Entree table[] = {{"A1", 0.13}, {"A2", 0.10}, {"A3", 0.10}, {"A4", 0.17},
                                       {"A5", 0.13}, {"A6", 0.13}, {"A7", 0.13}};
    for (const Entree &e : table)
        if (code == QLatin1String(e.code))
            return e.r;
    return std::nullopt;
}

std::optional<double> ConstanteEmetteur(const QString &emetteur)
{
    struct Entree
    {
        const char *nom;
        double c;
    };
    static constexpr Entree table[] = {{"Radi.", 1},   {"Conv.", 2},   {"Pr ch.", 0},
                                       {"Pl. ch.", 0}, {"Air>5VH", 4}, {"Air<5VH", 3}};
    for (const Entree &e : table)
        if (emetteur == QLatin1String(e.nom))
            return e.c;
    return std::nullopt;
}

std::optional<double> CalculTempératureAir(double trs, double te, double aire, double volume,
                                           const QString &emetteur,
                                           const QVector<SurfaceLocal> &surfaces)
{
    double sommeS = 0;
    double sommeTS = 0;
    for (const SurfaceLocal &s : surfaces) {
        const auto r = ResistanceInterieure(s.code);
        if (!r)
            continue;
        const double tsi = trs - (trs - te) * s.b * s.u * *r;
        sommeS += s.surface;
        sommeTS += tsi * s.surface;
    }
    if (volume * aire == 0)
        return std::nullopt;
    // The fitted law needs a positive wall-and-ceiling volume term.
    const double d = volume - aire;
    if (!(d > 0))
        return std::nullopt;
    const double p = std::pow(d, 0.61889482);
    const double y = (5.2281081 * p + 0.10143084 * 191.95769) / (p + 191.95769);
    const double h = d / y;
    double tm;
    if (emetteur.startsWith(QLatin1Char('P')))
        tm = ((h - sommeS - aire) * trs + sommeTS + aire * (trs + 5)) / h;
    else
        tm = ((h - sommeS) * trs + sommeTS) / h;
    const double k = Int(tm) == trs ? 1 : 0;
    double ta = 2 * trs - tm + ConstanteEmetteur(emetteur).value_or(0) - k;
    if (ta > 1.25 * trs)
        ta = 1.25 * trs;
    if (ta < trs)
        ta = trs;
    return ta;
}

ValeursVentilation LireValeursVentilation(const QString &cellule)
{
    const QString maxi = QStringLiteral("Maxi : ");
    const QString mini = QStringLiteral("Mini : ");
    ValeursVentilation v;
    const qsizetype iMaxi = cellule.indexOf(maxi);
    if (iMaxi >= 0) {
        QString t = cellule.mid(iMaxi + maxi.size());
        const qsizetype fin = t.indexOf(QStringLiteral(" ;"));
        if (fin >= 0)
            t.truncate(fin);
        v.maxi = ValNombre(t);
    } else {
        v.maxi = ValNombre(cellule);
    }
    const qsizetype iMini = cellule.indexOf(mini);
    v.mini = iMini >= 0 ? ValNombre(cellule.mid(iMini + mini.size())) : v.maxi;
    return v;
}

double DebitLocal(const DonneesVentilation &v, double fuites, double qi)
{
    if (!(v.permeabilite > 0))
        return qi;
    return std::max(((v.debitZone - v.debitBase) * 2 * fuites) / v.permeabilite, 0.0) + qi;
}

double PerteRenouvellementAir(double qv, double qi, double chaleurVolumique, double b,
                              double deltaT, double recuperation)
{
    const double exces = std::max(qv - qi, 0.0);
    return exces * chaleurVolumique * b * deltaT
        + (qi * chaleurVolumique * (100 - recuperation) / 100) * b * deltaT;
}

QString TexteVolume(double volume)
{
    return volume < 1000 ? Format(volume, QStringLiteral("### ##0.00"))
                         : Format(volume, QStringLiteral("### ### ##0"));
}

std::optional<double> FacteurSupplement(const QString &emetteur, double hauteur)
{
    if (!(hauteur > 5))
        return std::nullopt;
    struct Entree
    {
        const char *nom;
        double jusqua10, auDela;
    };
    static constexpr Entree table[]
        = {{"Radi.", 0.10, 0.20},   {"Conv.", 0.15, 0.20},   {"Pr ch.", 0.00, 0.00},
           {"Pl. ch.", 0.15, 0.20}, {"Air<5VH", 0.60, 0.60}, {"Air>5VH", 0.15, 0.15}};
    for (const Entree &e : table)
        if (emetteur == QLatin1String(e.nom))
            return hauteur > 10 ? e.auDela : e.jusqua10;
    return 0.0;
}

} // namespace thermique
