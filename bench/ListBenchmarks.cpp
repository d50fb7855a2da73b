#include "Benchmarks.h"
#include "Dom.h"
#include "Kestrin.h"
#include "Plain.h"
#include "Stream.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace {

/// A list with the values of a plan, in a group of its own.
template <class Side>
class ListTree
{
public:
    using List = typename Side::List;

    ListTree() : _root(Side::makeGroup(QStringLiteral("TREE"), QStringLiteral("Tree")))
    {
        auto list = std::make_unique<List>(Plan::ListKey);
        list->setLabel(Plan::ListKey);
        list->setRange(Plan::Minimum, Plan::Maximum);
        _list = list.get();
        Side::add(*_root, std::move(list));
    }
    explicit ListTree(const Plan& plan) : ListTree() { _list->setValues(plan.getValues()); }

    typename Side::Group& getRoot() { return *_root; }
    List& getList() { return *_list; }

private:
    typename Side::Root _root;
    List* _list;
};

/// The items of the text are there, with other values.
template <class Side>
void loadAgain(benchmark::State& state)
{
    const Plan& plan = Plan::of(int(state.range()));
    Texts texts(plan, Dom::saveList);
    ListTree<Side> tree(plan);
    bool loaded = true;
    for (auto _ : state)
        loaded = Side::load(tree.getRoot(), texts.next()) && loaded;
    const double last = tree.getList().getLastItem()->getValue();
    const double expected = plan.getLeaves().back().value + texts.getOffset();
    require(state, loaded && std::abs(last - expected) < 1e-6, "the text was not read");
}

/// Sides without a tree have no items either: they read the text in each of the works.
template <class Side>
void readText(benchmark::State& state)
{
    readTexts<Side>(state, Texts(Plan::of(int(state.range())), Dom::saveList));
}

/// The list is empty before.
template <class Side>
void loadIntoEmpty(benchmark::State& state, bool unique)
{
    const Plan& plan = Plan::of(int(state.range()));
    const QByteArray& text = Texts(plan, Dom::saveList).getFirst();
    std::optional<ListTree<Side>> tree;
    for (auto _ : state) {
        state.PauseTiming();
        tree.emplace();
        tree->getList().setUnique(unique);
        state.ResumeTiming();

        Side::load(tree->getRoot(), text);
    }
    require(state, Side::save(tree->getRoot()) == text, "the list is not the one in the text");
}

template <class Side>
void loadNew(benchmark::State& state)
{
    loadIntoEmpty<Side>(state, false);
}

template <class Side>
void loadUnique(benchmark::State& state)
{
    loadIntoEmpty<Side>(state, true);
}

template <class Side>
void reverse(benchmark::State& state)
{
    ListTree<Side> tree(Plan::of(int(state.range())));
    auto& list = tree.getList();
    QStringList keys = list.getItemKeys();
    const typename Side::Observer observer(tree.getRoot());
    for (auto _ : state) {
        state.PauseTiming();
        std::reverse(keys.begin(), keys.end());
        state.ResumeTiming();

        list.resetItemKeys(keys);
    }
    require(state, list.getItemKeys() == keys && observer.getChanges() >= state.iterations() * state.range(),
            "the list is not in reverse order, or the observer has not heard of each label");
}

template <class Side>
void find(benchmark::State& state)
{
    ListTree<Side> tree(Plan::of(int(state.range())));
    const auto& list = tree.getList();
    const QStringList keys = list.getItemKeys();
    bool found = true;
    for (auto _ : state) {
        for (const QString& key : keys)
            found = list.getChild(key) && found;
    }
    require(state, found && list.getChild(keys.last()) == list.getLastItem(), "not each item was found");
}

template <class Side>
void setAll(benchmark::State& state, bool unique)
{
    const Plan& plan = Plan::of(int(state.range()));
    ListTree<Side> tree(plan);
    tree.getList().setUnique(unique);
    QList<double> values[] = {plan.getValues(1.0), plan.getValues(2.0)};
    const QList<double> distinct[] = {values[0], values[1]};
    if (unique) {
        // Two more, which do not come in.
        for (QList<double>& each : values)
            each << each.first() + 1e-11 << each.last();
    }
    const typename Side::Observer observer(tree.getRoot());
    int which = 0;
    for (auto _ : state) {
        which = 1 - which;
        tree.getList().setValues(values[which]);
    }
    require(state,
            tree.getList().getValues() == distinct[which] &&
                observer.getChanges() >= state.iterations() * state.range(),
            "the values were not set, or the observer has not heard of each");
}

template <class Side>
void setValues(benchmark::State& state)
{
    setAll<Side>(state, false);
}

template <class Side>
void setUniqueValues(benchmark::State& state)
{
    setAll<Side>(state, true);
}

/// All items die one by one, and the list hears of each.
template <class Side, class Choose>
void destroyAll(benchmark::State& state, Choose choose)
{
    const Plan& plan = Plan::of(int(state.range()));
    for (auto _ : state) {
        state.PauseTiming();
        auto tree = std::make_unique<ListTree<Side>>(plan);
        auto observer = std::make_unique<typename Side::Observer>(tree->getRoot());
        auto& list = tree->getList();
        state.ResumeTiming();

        while (list.getItemCount() > 0)
            delete choose(list);

        state.PauseTiming();
        require(state, observer->getChanges() >= state.range(), "the observer has not heard of each death");
        observer.reset();
        tree.reset();
        state.ResumeTiming();
    }
}

template <class Side>
void destroyFromBack(benchmark::State& state)
{
    destroyAll<Side>(state, [](const auto& list) { return list.getLastItem(); });
}

template <class Side>
void destroyFromFront(benchmark::State& state)
{
    destroyAll<Side>(state, [](const auto& list) { return list.getItemAt(0); });
}

template <class Side>
void add(const char* work, void (*function)(benchmark::State&), int from, int to)
{
    addBenchmark<Side>(work, function)->RangeMultiplier(10)->Range(from, to);
}

template <class Side>
void addLoads(void (*again)(benchmark::State&), void (*anew)(benchmark::State&), void (*unique)(benchmark::State&))
{
    add<Side>("load a list from text", again, 1'000, 100'000);
    add<Side>("load a list from text, all items are new", anew, 1'000, 100'000);
    add<Side>("load a list of unique values from text, all items are new", unique, 1'000, 100'000);
}

template <class Side>
void registerSide()
{
    addLoads<Side>(loadAgain<Side>, loadNew<Side>, loadUnique<Side>);
    add<Side>("reverse a list by its keys", reverse<Side>, 1'000, 100'000);
    add<Side>("find each item of a list by key", find<Side>, 1'000, 100'000);
    add<Side>("set all values of a list", setValues<Side>, 1'000, 100'000);
    add<Side>("set all values of a list of unique values", setUniqueValues<Side>, 1'000, 100'000);
    // Each death gives all other items a new label.
    add<Side>("destroy the items of a list from the front", destroyFromFront<Side>, 10, 1'000);
}

template <class Side>
void registerReader()
{
    addLoads<Side>(readText<Side>, readText<Side>, readText<Side>);
}

} // namespace

void registerListBenchmarks()
{
    registerSide<Kestrin>();
    registerSide<Plain>();
    registerReader<Dom>();
    registerReader<Stream>();
    // A QObject looks for a dying child from the front.
    const char* const destroyFromTheBack = "destroy the items of a list from the back";
    add<Kestrin>(destroyFromTheBack, destroyFromBack<Kestrin>, 1'000, 100'000);
    add<Plain>(destroyFromTheBack, destroyFromBack<Plain>, 1'000, 10'000);
}
