#include "Benchmarks.h"
#include "Dom.h"
#include "Kestrin.h"
#include "Plain.h"
#include "Stream.h"
#include "Tree.h"
#ifdef KESTRIN_BENCH_TEUCHOS
#include "Trilinos.h"
#endif

#include <cmath>
#include <optional>

namespace {

/// Calls `visit(group, leaf)` with the rows of each leaf.
template <class AnyPlan, class Visit>
void forEachLeaf(const AnyPlan& plan, Visit visit)
{
    const typename AnyPlan::Row* group = nullptr;
    plan.walk([&](const auto& row) { group = &row; }, [&](const auto& row) { visit(*group, row); });
}

template <class Side>
void build(benchmark::State& state)
{
    const auto& plan = Side::Plan::of(int(state.range()));
    std::optional<typename Side::Root> root;
    qint64 bytes = 0;
    for (auto _ : state) {
        state.PauseTiming();
        root.reset();
        bytes = -Allocations::bytesInUse();
        state.ResumeTiming();

        root = Side::build(plan);

        state.PauseTiming();
        bytes += Allocations::bytesInUse();
        state.ResumeTiming();
    }
    state.counters["bytes"] = double(bytes) / double(state.range());
}

template <class Side>
void duplicate(benchmark::State& state)
{
    const typename Side::Root source = Side::build(Side::Plan::of(int(state.range())));
    std::optional<typename Side::Root> copy;
    for (auto _ : state) {
        state.PauseTiming();
        copy.reset();
        state.ResumeTiming();
        copy = Side::duplicate(source);
    }
}

/// A value for each leaf in turn: on even calls that of the plan, else 1 more.
template <class Side>
void setByKeys(benchmark::State& state)
{
    const auto& plan = Side::Plan::of(int(state.range()));
    const typename Side::Root root = Side::build(plan);
    double offset = 0.0;
    for (auto _ : state) {
        offset = 1.0 - offset;
        forEachLeaf(plan, [&](const auto& group, const auto& leaf) {
            Side::setValue(*root, group.key, leaf.key, leaf.value + offset);
        });
    }
    const auto& last = plan.getLeaves().back();
    const double value = Side::getValue(*root, plan.getGroups().back().key, last.key);
    require(state, value == last.value + offset, "the values were not set");
}

template <class Side>
void getByKeys(benchmark::State& state)
{
    const auto& plan = Side::Plan::of(int(state.range()));
    const typename Side::Root root = Side::build(plan);
    bool right = true;
    for (auto _ : state) {
        forEachLeaf(plan, [&](const auto& group, const auto& leaf) {
            right = Side::getValue(*root, group.key, leaf.key) == leaf.value && right;
        });
    }
    require(state, right, "the values are not those of the plan");
}

template <class Side>
void save(benchmark::State& state)
{
    const Plan& plan = Plan::of(int(state.range()));
    const typename Side::Root root = Side::build(plan);
    QByteArray text;
    for (auto _ : state)
        text = Side::save(*root);
    require(state, text == Texts(plan, Dom::saveTree).getFirst(), "the text is not the one that all sides write");
}

/// Sides without a tree write the numbers of the plan.
template <class Side>
void writeText(benchmark::State& state)
{
    const Plan& plan = Plan::of(int(state.range()));
    QByteArray text;
    for (auto _ : state)
        text = Side::save(plan);
    require(state, text == Texts(plan, Dom::saveTree).getFirst(), "the text is not the one that all sides write");
}

template <class Side>
void load(benchmark::State& state)
{
    const Plan& plan = Plan::of(int(state.range()));
    Texts texts(plan, Dom::saveTree);
    Tree<Side> tree(buildTree<Side>, int(state.range()));
    bool loaded = true;
    for (auto _ : state)
        loaded = Side::load(tree.getRoot(), texts.next()) && loaded;
    const double last = tree.getLeaves().back()->getValue();
    const double expected = plan.getLeaves().back().value + texts.getOffset();
    require(state, loaded && std::abs(last - expected) < 1e-6, "the text was not read");
}

template <class Side>
void readText(benchmark::State& state)
{
    readTexts<Side>(state, Texts(Plan::of(int(state.range())), Dom::saveTree));
}

template <class Side>
void add(const char* work, void (*function)(benchmark::State&))
{
    addBenchmark<Side>(work, function)->RangeMultiplier(10)->Range(1'000, 100'000);
}

template <class Side>
void registerTree()
{
    add<Side>("build a tree", build<Side>);
    add<Side>("duplicate a tree", duplicate<Side>);
}

template <class Side>
void registerKeys()
{
    add<Side>("get each leaf of a tree by its keys", getByKeys<Side>);
    add<Side>("set each leaf of a tree by its keys", setByKeys<Side>);
}

template <class Side>
void registerTexts(void (*save)(benchmark::State&), void (*load)(benchmark::State&))
{
    add<Side>("save a tree to text", save);
    add<Side>("load a tree from text", load);
}

#ifdef KESTRIN_BENCH_TEUCHOS

QByteArray saveTrilinos(const Plan& plan, double offset)
{
    return Trilinos::save(*Trilinos::build(StdPlan::of(int(plan.getLeaves().size())), offset));
}

/// The text is its own, which holds more.
template <>
void save<Trilinos>(benchmark::State& state)
{
    const int leafCount = int(state.range());
    const Trilinos::Root root = Trilinos::build(StdPlan::of(leafCount));
    QByteArray text;
    for (auto _ : state)
        text = Trilinos::save(*root);
    require(state, text == Texts(Plan::of(leafCount), saveTrilinos).getFirst(), "the text is not the one expected");
}

template <>
void load<Trilinos>(benchmark::State& state)
{
    const StdPlan& plan = StdPlan::of(int(state.range()));
    Texts texts(Plan::of(int(state.range())), saveTrilinos);
    const Trilinos::Root root = Trilinos::build(plan);
    bool loaded = true;
    for (auto _ : state)
        loaded = Trilinos::load(*root, texts.next()) && loaded;
    const auto& leaf = plan.getLeaves().back();
    const double last = Trilinos::getValue(*root, plan.getGroups().back().key, leaf.key);
    require(state, loaded && last == leaf.value + texts.getOffset(), "the text was not read");
}

#endif

} // namespace

void registerTreeBenchmarks()
{
    registerTree<Kestrin>();
    registerTree<Plain>();
    registerTree<Dom>();
    registerKeys<Kestrin>();
    registerKeys<Plain>();
    registerTexts<Kestrin>(save<Kestrin>, load<Kestrin>);
    registerTexts<Plain>(save<Plain>, load<Plain>);
    registerTexts<Dom>(writeText<Dom>, readText<Dom>);
    registerTexts<Stream>(writeText<Stream>, readText<Stream>);
#ifdef KESTRIN_BENCH_TEUCHOS
    registerTree<Trilinos>();
    registerKeys<Trilinos>();
    registerTexts<Trilinos>(save<Trilinos>, load<Trilinos>);
#endif
}
