#include "Benchmarks.h"
#ifdef KESTRIN_BENCH_TEUCHOS
#include "Trilinos.h"
#endif

#include <QtCore/QtGlobal>

namespace {

#ifdef __clang__
constexpr const char* compiler = __VERSION__;
#else
constexpr const char* compiler = "g++ " __VERSION__;
#endif

} // namespace

int main(int argc, char** argv)
{
    registerSetBenchmarks();
    registerBatchBenchmarks();
    registerTreeBenchmarks();
    registerListBenchmarks();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::AddCustomContext("compiler", compiler);
    benchmark::AddCustomContext("Qt", qVersion());
#ifdef KESTRIN_BENCH_TEUCHOS
    benchmark::AddCustomContext("Teuchos", Trilinos::getVersion());
#endif
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
