// Recalculation of the heat-loss sheet of a large study: 60 room tables of 18 walls and
// 2 bridges each, about 1 500 rows, with 400 rows of walls on Coef-U.
#include "heatloss/calcullocal.h"
#include "heatloss/tableaupertes.h"

#include <benchmark/benchmark.h>

using namespace thermique;

namespace {

struct GrandeEtude
{
    Grid pertes {80, ColonnesPertes};
    Grid parois {400, 14};
    Grid ventilation {26, 23};
    QVector<int> lignesMur;

    GrandeEtude()
    {
        QStringList murs;
        for (int i = 0; i < 18; ++i) {
            // A wall block every 20 rows: head Rse, entry Rsi, then its U.
            const int tete = 3 + 20 * i;
            const QString cle = QStringLiteral("%1").arg(i + 1, 4, 10, QLatin1Char('0'));
            parois.setText(tete, 0, cle);
            parois.setText(tete, 9, QStringLiteral("0.040"));
            parois.setText(tete + 4, 9, QStringLiteral("0.130"));
            parois.setText(tete + 5, 11, QStringLiteral("0.36"));
            parois.setText(tete + 5, 12, QStringLiteral("0.36"));
            murs << QStringLiteral("Mur %1@A%2@@@0.36@0.36@%3").arg(i).arg(i % 4 + 1).arg(cle);
        }
        const QStringList ponts
            = {QStringLiteral("Pont 1@L1@0.50@P001"), QStringLiteral("Pont 2@L2@0.30@P002")};
        for (int c = 12; c < 23; ++c) {
            ventilation.setText(19, c, QStringLiteral("Bâtiment individuel : 0.50"));
            ventilation.setText(21, c, QStringLiteral("40"));
            ventilation.setText(25, c, QStringLiteral("Maxi : 1\u00a0200 ; Mini : 300"));
        }
        CouleursPertes couleurs;
        couleurs.verrouillee = 12632256;
        int r = 0;
        for (int local = 0; local < 60; ++local) {
            const int tete = r;
            r = EcrireTableau(pertes, r, couleurs, murs, ponts, -7);
            pertes.setText(tete, 9, QStringLiteral("19"));
            for (int l = tete + 2; l < tete + 22; ++l) {
                pertes.setOperation(l, 15, QStringLiteral("2.00*1.25-(0.88*1.08)*2"));
                pertes.setText(l, 15, QStringLiteral("0.60"));
                lignesMur << l;
            }
            const int resultats = tete + 23;
            pertes.setText(resultats, 2, QStringLiteral("25.00"));
            pertes.setText(resultats, 3, QStringLiteral("25.00"));
            pertes.setText(resultats, 5, QStringLiteral("2.50"));
            pertes.setText(resultats, 13, QStringLiteral("30.00"));
        }
    }
};

void BM_ValidationLigne(benchmark::State &state)
{
    GrandeEtude e;
    ContexteCalculPertes ctx {e.pertes, e.parois, e.ventilation, 12632256, false};
    int i = 0;
    for (auto _ : state) {
        // A commit on a line: the line, its room and the building total.
        CalculLignePertes(ctx, e.lignesMur[i++ % e.lignesMur.size()]);
        benchmark::DoNotOptimize(CalculTotalPertes(e.pertes));
    }
}
BENCHMARK(BM_ValidationLigne)->Unit(benchmark::kMicrosecond);

void BM_RecalculFeuille(benchmark::State &state)
{
    GrandeEtude e;
    ContexteCalculPertes ctx {e.pertes, e.parois, e.ventilation, 12632256, false};
    for (auto _ : state) {
        ReevaluerOperations(e.pertes);
        for (int r = 0; r < e.pertes.rows(); ++r) {
            CorrigerULigne(ctx, r);
            if (e.pertes.text(r, 0) == CodePertes::Resultats)
                CalculVolume(ctx, r);
        }
        for (int tete : TetesTableaux(e.pertes))
            CalculLocal(ctx, tete);
        benchmark::DoNotOptimize(CalculTotalPertes(e.pertes));
    }
}
BENCHMARK(BM_RecalculFeuille)->Unit(benchmark::kMillisecond);

} // namespace
