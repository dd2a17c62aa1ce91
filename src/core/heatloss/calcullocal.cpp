#include "calcullocal.h"

#include "calculspertes.h"
#include "tableaupertes.h"

#include "workbook/calculatrice.h"
#include "workbook/nombres.h"

namespace thermique {

namespace C = ColonnePertes;

namespace {

const QString motifPertes = QStringLiteral("###,###,##0");
const QString motifTemperature = QStringLiteral("##0.00");
const QString sansPerte = QStringLiteral("       ");
const QString faux = QStringLiteral("Faux");

double nombre(const Grid &g, int r, int c)
{
    return ValNombre(g.text(r, c));
}

// The Coef-U row whose key column holds `cle`.
int ligneParoi(const Grid &parois, const QString &cle)
{
    if (cle.trimmed().isEmpty())
        return -1;
    for (int r = 0; r < parois.rows(); ++r)
        if (parois.text(r, 0) == cle)
            return r;
    return -1;
}

QString texteU(std::optional<double> u)
{
    return u ? Format(*u, QStringLiteral("##0.00")) : faux;
}

void corrigerParoi(ContexteCalculPertes &ctx, int ligne, int tete, double rAlpha)
{
    const Grid &p = ctx.parois;
    int r2Ligne = -1;
    for (int r = tete + 1; r < p.rows(); ++r)
        if (!p.text(r, 9).trimmed().isEmpty()) {
            r2Ligne = r;
            break;
        }
    if (r2Ligne < 0)
        return;
    const double rsi = ValNombre(p.text(tete, 9));
    const double r2 = ValNombre(p.text(r2Ligne, 9));
    const double uj = ValNombre(p.text(r2Ligne + 1, 11));
    const double un = ValNombre(p.text(r2Ligne + 1, 12));
    if (uj == 0 || un == 0 || rsi == r2)
        return;
    ctx.pertes.setText(ligne, C::UJour, texteU(UCorrige(uj, r2, rAlpha)));
    ctx.pertes.setText(ligne, C::UNuit, texteU(UCorrige(un, r2, rAlpha)));
}

void corrigerFenetre(ContexteCalculPertes &ctx, int ligne, int tete, double rAlpha)
{
    const Grid &p = ctx.parois;
    for (int r = tete; r < p.rows(); ++r) {
        if (!p.text(r, 6).startsWith(QStringLiteral("Coefficients de la fenêtre")))
            continue;
        const auto uj = UCorrige(ValNombre(p.text(r, 11)), 0.13, rAlpha);
        const auto un = UCorrige(ValNombre(p.text(r, 12)), 0.13, rAlpha);
        Grid &g = ctx.pertes;
        g.setText(ligne, C::UJour, texteU(uj));
        if (un)
            g.setText(ligne, C::UNuit, texteU(un));
        else
            // An impossible night U marks the day column, as the users know it.
            g.setText(ligne, C::UJour, faux);
        return;
    }
}

// The air line (once per room): flow of the room from its leakage, and its loss.
double calculAir(ContexteCalculPertes &ctx, int ligne, int resultats, double fuites, double deltaT)
{
    Grid &g = ctx.pertes;
    const Grid &v = ctx.ventilation;
    DonneesVentilation d;
    d.debitZone = LireValeursVentilation(v.text(25, 12)).maxi;
    d.permeabilite = ValNombre(v.text(21, 12));
    d.permeabiliteM2 = Val(v.text(19, 12).right(4));
    d.debitBase = ValNombre(v.text(5, 12));
    const double qi = nombre(g, resultats, C::Qi);
    const double l
        = fuites + nombre(g, resultats, C::Pe) + nombre(g, resultats, C::Aire) * d.permeabiliteM2;
    g.setText(ligne, C::Quantite,
              QLatin1Char(' ') + Format(DebitLocal(d, l, qi), QStringLiteral("###,##0")));
    g.setText(ligne, C::DeltaT, Format(deltaT, motifTemperature));
    const double recuperation = Val(g.text(resultats, C::Recuperation).mid(7));
    const double perte
        = PerteRenouvellementAir(nombre(g, ligne, C::Quantite), qi, nombre(g, ligne, C::UJour),
                                 nombre(g, ligne, C::B), deltaT, recuperation);
    g.setText(ligne, C::Pertes, Format(perte, motifPertes));
    return nombre(g, ligne, C::Pertes);
}

void ecrireComplement(Grid &g, int r, qint32 verrou, double somme, double facteur)
{
    for (int c = 1; c < g.cols(); ++c)
        g.setText(r, c, QStringLiteral(" "));
    g.setText(r, 0, CodePertes::Complement);
    g.setMergeRow(r, true);
    for (int c = 1; c <= 6; ++c)
        g.setText(r, c, QStringLiteral("Supplément pour grande hauteur"));
    const QString detail = QStringLiteral("(Air pulsé à grande vitesse), ")
        + Format(somme, QStringLiteral("###,##0")) + QStringLiteral(" x ")
        + Format(facteur, QStringLiteral("0.00"));
    for (int c = 7; c <= 17; ++c)
        g.setText(r, c, detail);
    g.setText(r, C::Pertes, Format(somme * facteur, motifPertes));
    CouleursPertes couleurs;
    couleurs.verrouillee = verrou;
    FormaterLigne(g, r, couleurs);
}

} // namespace

void CorrigerULigne(ContexteCalculPertes &ctx, int ligne)
{
    Grid &g = ctx.pertes;
    if (g.text(ligne, C::Code) != CodePertes::Paroi)
        return;
    const int tete = ligneParoi(ctx.parois, g.text(ligne, C::Cle));
    if (tete < 0)
        return;
    const QString code = g.text(ligne, C::CodeParoi).trimmed();
    const double rAlpha = CorrectionInclinaison(Val(g.text(ligne, C::Inclinaison)));
    if (code == QLatin1String("A1") || code == QLatin1String("A2") || code == QLatin1String("A3")
        || code == QLatin1String("A4"))
        corrigerParoi(ctx, ligne, tete, rAlpha);
    else if ((code == QLatin1String("A6") || code == QLatin1String("A7"))
             && g.text(ligne, C::B).trimmed() == QLatin1String("1.00"))
        corrigerFenetre(ctx, ligne, tete, rAlpha);
}

void CalculLignePertes(ContexteCalculPertes &ctx, int ligne)
{
    CorrigerULigne(ctx, ligne);
    CalculLocal(ctx, ligne);
}

void CalculTempératureAir(ContexteCalculPertes &ctx, int tete)
{
    if (ctx.simplifie)
        return;
    Grid &g = ctx.pertes;
    const TableauLocal t = TrouverTableau(g, tete);
    if (!t.valide())
        return;
    QVector<SurfaceLocal> surfaces;
    for (int r = t.tete + 1; r < t.resultats; ++r)
        if (EstLigneCalcul(g.text(r, C::Code)))
            surfaces.append({g.text(r, C::CodeParoi).trimmed(), nombre(g, r, C::Quantite),
                             nombre(g, r, C::B), nombre(g, r, C::UJour)});
    const auto ta = CalculTempératureAir(
        nombre(g, t.tete, C::TemperatureResultante), nombre(g, t.tete, C::TemperatureExterieure),
        nombre(g, t.resultats, 3), nombre(g, t.resultats, C::Volume),
        g.text(t.tete, C::Emetteur).trimmed(), surfaces);
    if (ta)
        g.setText(t.tete, C::TemperatureAir, Format(*ta, motifTemperature));
}

void CalculVolume(ContexteCalculPertes &ctx, int resultats)
{
    Grid &g = ctx.pertes;
    QString expression
        = g.text(resultats, C::Aire) + QLatin1Char('*') + g.text(resultats, C::Hauteur);
    expression.remove(SeparateurMilliers);
    const ResultatCalcul r = EvaluerOperation(expression);
    const QString texte = r.valeur ? TexteVolume(*r.valeur) : QStringLiteral(" ");
    g.setText(resultats, 8, texte);
    g.setText(resultats, C::Volume, texte);
}

void CalculLocal(ContexteCalculPertes &ctx, int ligne)
{
    Grid &g = ctx.pertes;
    TableauLocal t = TrouverTableau(g, ligne);
    if (!t.valide() || t.titres < 0)
        return;
    CalculTempératureAir(ctx, t.tete);
    const double deltaT
        = nombre(g, t.tete, C::TemperatureAir) - nombre(g, t.tete, C::TemperatureExterieure);
    double somme = 0;
    double fuites = 0;
    for (int r = t.titres + 1; r < t.resultats; ++r) {
        const QString code = g.text(r, C::Code);
        if (EstLigneCalcul(code)) {
            g.setText(r, C::DeltaT, Format(deltaT, motifTemperature));
            double u = nombre(g, r, C::UJour);
            if (u == 0)
                u = nombre(g, r, C::ULineique);
            g.setText(r, C::Pertes,
                      u != 0 ? Format(
                          PerteLigne(nombre(g, r, C::Quantite), u, deltaT, nombre(g, r, C::B)),
                          motifPertes)
                             : sansPerte);
            const double m = nombre(g, r, C::Permeabilite);
            if (m != 0)
                fuites += m * nombre(g, r, C::SurfaceOuvrant);
            somme += nombre(g, r, C::Pertes);
        }
    }
    // The air line needs the leakage of every line of the room.
    if (t.air >= 0 && t.air < t.resultats) {
        if (ctx.simplifie)
            somme += nombre(g, t.air, C::Pertes);
        else
            somme += calculAir(ctx, t.air, t.resultats, fuites, deltaT);
    }

    const auto facteur = FacteurSupplement(g.text(t.tete, C::Emetteur).trimmed(),
                                           nombre(g, t.resultats, C::Hauteur));
    if (!facteur && t.complement >= 0) {
        g.removeRow(t.complement);
        CalculLocal(ctx, t.tete);
        return;
    }
    double total = somme;
    if (facteur) {
        int r = t.complement;
        if (r < 0) {
            r = (t.air >= 0 ? t.air : t.resultats - 1) + 1;
            g.insertRow(r);
            ++t.resultats;
        }
        ecrireComplement(g, r, ctx.couleurVerrouillee, somme, *facteur);
        total += somme * *facteur;
    }
    g.setText(t.resultats, C::Pertes, Format(total, motifPertes));
}

double CalculTotalPertes(const Grid &pertes)
{
    double total = 0;
    for (int r = 0; r < pertes.rows(); ++r)
        if (pertes.text(r, C::Code) == CodePertes::Resultats)
            total += ValNombre(pertes.text(r, C::Pertes));
    return total;
}

void ReevaluerOperations(Grid &pertes)
{
    for (int r = 0; r < pertes.rows(); ++r) {
        const QString code = pertes.text(r, C::Code);
        QVector<int> colonnes;
        if (EstLigneCalcul(code))
            colonnes = {7, 10, 11, 12, 13, 14, 15, 17};
        else if (code == CodePertes::Air)
            colonnes = {17};
        else if (code == CodePertes::Resultats)
            colonnes = {2, 5, 11, 13};
        for (int c : colonnes) {
            const QString operation = pertes.operation(r, c);
            if (operation.trimmed().isEmpty())
                continue;
            QString expression = operation;
            const double v = EvaluerOperation(expression).valeur.value_or(0);
            pertes.setText(r, c,
                           c == C::Inclinaison && EstLigneCalcul(code)
                               ? TexteNombre(v)
                               : Format(v, QStringLiteral("#,##0.00")));
            if (code == CodePertes::Resultats && c == C::Aire)
                pertes.setText(r, 3, pertes.text(r, C::Aire));
        }
    }
}

} // namespace thermique
