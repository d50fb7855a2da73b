#pragma once

#include "Allocations.h"
#include "Texts.h"

#include <benchmark/benchmark.h>

#include <string>

void registerSetBenchmarks();
void registerBatchBenchmarks();
void registerTreeBenchmarks();
void registerListBenchmarks();

/// Registers the function as "work/side", to which the library adds "/n" for each size that the caller goes on to name.
template <class Side>
benchmark::internal::Benchmark* addBenchmark(const std::string& work, void (*function)(benchmark::State&))
{
    return benchmark::RegisterBenchmark((work + '/' + Side::name).c_str(), [function](benchmark::State& state) {
        Allocations::settle();
        function(state);
    });
}

/// Makes the benchmark fail that did not do what it says.
inline void require(benchmark::State& state, bool done, const char* message)
{
    if (!done)
        state.SkipWithError(message);
}

/// Reads the texts on a side without a tree.
template <class Side>
void readTexts(benchmark::State& state, Texts texts)
{
    double sum = 0.0;
    for (auto _ : state)
        sum = Side::sum(texts.next());
    require(state, sum > 0.0, "the text was not read");
}
