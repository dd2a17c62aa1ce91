// Open and save of a large study: 60 room tables on a 1 500 x 38 heat-loss grid and 400
// rows of walls.
#include "workbook/fichierprojet.h"

#include <benchmark/benchmark.h>

using namespace thermique;

namespace {

Study grandeEtude()
{
    Study e;
    Grid &pertes = e.flexGrid[4];
    pertes.resize(1500, 38);
    for (int r = 0; r < pertes.rows(); ++r) {
        const int ligne = r % 25;
        pertes.setText(r, 0,
                       ligne == 0        ? QStringLiteral("TableauLigne1")
                           : ligne == 23 ? QStringLiteral("TableauLigneRésultats")
                                         : QStringLiteral("TableauLigneCalculParoi"));
        for (int c = 1; c < 19; ++c)
            pertes.setText(r, c, QStringLiteral("%1.25").arg(r + c));
        pertes.setOperation(r, 15, QStringLiteral("2.00*1.25-(0.88*1.08)*2"));
        pertes.cellPtr(r, 3)->attributs.couleurFond = 12632256;
    }
    Grid &parois = e.flexGrid[1];
    parois.resize(400, 14);
    for (int r = 0; r < parois.rows(); ++r)
        for (int c = 1; c < 14; ++c)
            parois.setText(r, c, QStringLiteral("Béton plein %1").arg(c));
    return e;
}

void BM_EnregistrerGrandeEtude(benchmark::State &state)
{
    const Study e = grandeEtude();
    qsizetype taille = 0;
    for (auto _ : state) {
        const FichierEtude f = EcrireEtude(e);
        taille = f.dep.size();
        benchmark::DoNotOptimize(taille);
    }
    state.counters["octets"] = double(taille);
}
BENCHMARK(BM_EnregistrerGrandeEtude)->Unit(benchmark::kMillisecond);

void BM_OuvrirGrandeEtude(benchmark::State &state)
{
    const QByteArray dep = EcrireEtude(grandeEtude()).dep;
    for (auto _ : state) {
        Study e;
        benchmark::DoNotOptimize(LireEtude(dep, e));
    }
}
BENCHMARK(BM_OuvrirGrandeEtude)->Unit(benchmark::kMillisecond);

} // namespace
