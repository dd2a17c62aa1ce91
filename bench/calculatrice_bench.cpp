#include "workbook/calculatrice.h"

#include <benchmark/benchmark.h>

#include <QString>

namespace {

// The text is normalised in place, so each iteration works on a fresh copy, as a sheet
// recalculation does with the stored operation.
void evaluerEnBoucle(benchmark::State &state, const QString &source)
{
    for (auto _ : state) {
        QString texte = source;
        const thermique::ResultatCalcul r = thermique::EvaluerOperation(texte);
        benchmark::DoNotOptimize(r.valeur);
    }
}

void BM_NombreSimple(benchmark::State &state)
{
    evaluerEnBoucle(state, QStringLiteral("12.50"));
}
BENCHMARK(BM_NombreSimple);

void BM_OperationDeSurface(benchmark::State &state)
{
    evaluerEnBoucle(state, QStringLiteral("2.00*1.25-(0.88*1.08)*2"));
}
BENCHMARK(BM_OperationDeSurface);

void BM_EvaluationSilencieuse(benchmark::State &state)
{
    const QString source = QStringLiteral("2,00*1,25-(0,88*1,08)*2");
    for (auto _ : state) {
        double valeur = 0;
        benchmark::DoNotOptimize(thermique::EvaluationSilencieuse(source, valeur));
        benchmark::DoNotOptimize(valeur);
    }
}
BENCHMARK(BM_EvaluationSilencieuse);

} // namespace
