// The relation kit against lists: every kind, persistent and transient.
#include <algorithm>
#include <random>

#include "model/Relations.h"
#include "store/NewMemoryPool.h"
#include "store_graph.h"

namespace corvane::test {
namespace {

using Relations = StoreTest;

constexpr int kSteps = 20000;

template <class R, class Parent, class Child>
std::vector<Child*> Forward(const R& relation, const Parent* parent, const Child*) {
    std::vector<Child*> children;
    for (Child* child : relation.Of(parent)) children.push_back(child);
    return children;
}

// Random adds, inserts, removals and moves between three parents, each followed by every question one can
// ask.
template <class R>
void AgainstLists(const R& relation, const std::vector<typename R::Parent*>& parents,
                  const std::vector<typename R::Child*>& children, int steps, bool tellsParent) {
    using Child = typename R::Child;
    std::minstd_rand random(3);
    std::vector<std::vector<Child*>> lists(parents.size());
    std::vector<int> listOf(children.size(), -1);
    for (int step = 0; step < steps; ++step) {
        SCOPED_TRACE(step);
        const size_t c = random() % children.size();
        Child* child = children[c];
        if (listOf[c] >= 0) {
            auto& list = lists[static_cast<size_t>(listOf[c])];
            if constexpr (requires { relation.ParentOf(child); }) {
                if (tellsParent)
                    relation.Remove(child);
                else
                    relation.Remove(parents[static_cast<size_t>(listOf[c])], child);
            } else {
                relation.Remove(parents[static_cast<size_t>(listOf[c])], child);
            }
            list.erase(std::find(list.begin(), list.end(), child));
            listOf[c] = -1;
            ASSERT_FALSE(relation.IsLinked(child));
        } else {
            const size_t p = random() % parents.size();
            auto& list = lists[p];
            const size_t at = random() % (list.size() + 1);
            if (random() % 2) {
                relation.Add(parents[p], child);
                list.push_back(child);
            } else {
                relation.Insert(parents[p], child, at ? list[at - 1] : nullptr);
                list.insert(list.begin() + static_cast<ptrdiff_t>(at), child);
            }
            listOf[c] = static_cast<int>(p);
        }
        for (size_t p = 0; p < parents.size(); ++p) {
            ASSERT_EQ(Forward(relation, parents[p], child), lists[p]);
            std::vector<Child*> backward;
            typename R::Walk walk(parents[p]);
            while (Child* found = walk.Prev()) backward.insert(backward.begin(), found);
            ASSERT_EQ(backward, lists[p]);
            EXPECT_EQ(walk.Prev(), nullptr) << "it goes on being at its end";
            EXPECT_EQ(relation.Count(parents[p]), static_cast<int>(lists[p].size()));
            EXPECT_EQ(relation.First(parents[p]), lists[p].empty() ? nullptr : lists[p].front());
            EXPECT_EQ(relation.Last(parents[p]), lists[p].empty() ? nullptr : lists[p].back());
        }
    }
}

template <class T>
std::vector<T*> Several(int count) {
    std::vector<T*> objects;
    for (int i = 0; i < count; ++i) objects.push_back(Make<T>());
    return objects;
}

TEST_F(Relations, EachKindAgreesWithAList) {
    Make<Document>();
    AgainstLists(systemMeasures, Several<System>(3), Several<Measure>(12), kSteps, true);
    AgainstLists(
        voiceSymbols, Several<Voice>(3),
        [] {
            std::vector<VoiceSymbol*> symbols;
            for (Chords* chord : Several<Chords>(6)) symbols.push_back(chord);
            for (Pause* rest : Several<Pause>(6)) symbols.push_back(rest);
            return symbols;
        }(),
        kSteps, true);
    // Ends that stand elsewhere in each class of child.
    AgainstLists(
        measureSymbols, Several<Measure>(3),
        [] {
            std::vector<MeasureSymbol*> symbols;
            for (ChordSymbol* column : Several<ChordSymbol>(6)) symbols.push_back(column);
            for (CrossBeam* beam : Several<CrossBeam>(6)) symbols.push_back(beam);
            return symbols;
        }(),
        kSteps, true);
}

TEST_F(Relations, ACollectionAgreesWithAList) {
    const std::vector<System*> systems = Several<System>(3);
    const std::vector<Connection*> connections = Several<Connection>(8);
    std::vector<std::vector<Connection*>> lists(3);
    std::vector<int> listOf(8, -1);
    std::minstd_rand random(5);
    for (int step = 0; step < kSteps; ++step) {
        const size_t c = random() % connections.size(), p = random() % 3;
        if (listOf[c] >= 0) {
            auto& list = lists[static_cast<size_t>(listOf[c])];
            systemConnections.Remove(systems[static_cast<size_t>(listOf[c])], connections[c]);
            list.erase(std::find(list.begin(), list.end(), connections[c]));
            listOf[c] = -1;
        } else {
            systemConnections.Add(systems[p], connections[c]);
            lists[p].push_back(connections[c]);
            listOf[c] = static_cast<int>(p);
        }
        for (size_t i = 0; i < 3; ++i)
            ASSERT_EQ(Forward(systemConnections, systems[i], connections[0]), lists[i]);
    }
}

TEST_F(Relations, AWalkSurvivesTheRemovalOfWhatItReturned) {
    auto* system = Make<System>();
    for (int i = 0; i < 5; ++i) systemMeasures.Add(system, Make<Measure>());
    decltype(systemMeasures)::Walk walk(system);
    int met = 0;
    while (Measure* measure = walk.Next()) {
        systemMeasures.Remove(measure);
        ++met;
    }
    EXPECT_EQ(met, 5);
    EXPECT_TRUE(systemMeasures.IsEmpty(system));
}

TEST_F(Relations, AWalkAroundAChildGivesItsNeighbours) {
    auto* system = Make<System>();
    Measure* m[3];
    for (Measure*& measure : m) systemMeasures.Add(system, measure = Make<Measure>());
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(decltype(systemMeasures)::Walk(system, m[i]).Next(), i < 2 ? m[i + 1] : nullptr);
        EXPECT_EQ(decltype(systemMeasures)::Walk(system, m[i]).Prev(), i > 0 ? m[i - 1] : nullptr);
        EXPECT_EQ(systemMeasures.Next(m[i]), i < 2 ? m[i + 1] : nullptr);
        EXPECT_EQ(systemMeasures.Prev(m[i]), i > 0 ? m[i - 1] : nullptr);
    }
}

TEST_F(Relations, UndoTakesBackEveryLink) {
    auto* system = Make<System>();
    auto *kept = Make<Measure>(), *added = Make<Measure>();
    systemMeasures.Add(system, kept);
    pool->EnableUndo();
    {
        const CommandScope command;
        systemMeasures.Insert(system, added, nullptr);
        systemMeasures.Remove(kept);
    }
    pool->Undo();
    EXPECT_EQ(Forward(systemMeasures, system, kept), std::vector<Measure*>{kept});
    EXPECT_EQ(systemMeasures.ParentOf(added), nullptr);
    pool->Redo();
    EXPECT_EQ(Forward(systemMeasures, system, kept), std::vector<Measure*>{added});
    EXPECT_EQ(systemMeasures.ParentOf(kept), nullptr);
}

// Measures that come and go: made and linked, moved, unlinked and given back, in commands that are undone and
// done again.
class Herd : public StoreTest {
protected:
    using Lists = std::vector<std::vector<Measure*>>;

    void Step() {
        ++steps;
        const size_t p = random() % systems.size();
        auto& list = lists[p];
        if (list.empty() || random() % 100 < (steps / 2000 % 2 ? 40u : 60u)) {
            auto* measure = Make<Measure>();
            const size_t at = random() % (list.size() + 1);
            systemMeasures.Insert(systems[p], measure, at ? list[at - 1] : nullptr);
            list.insert(list.begin() + static_cast<ptrdiff_t>(at), measure);
            return;
        }
        const size_t at = random() % list.size();
        Measure* measure = list[at];
        systemMeasures.Remove(measure);
        list.erase(list.begin() + static_cast<ptrdiff_t>(at));
        if (random() % 3) {
            MemoryManager::Instance().Release(measure);
        } else {
            auto& other = lists[random() % lists.size()];
            systemMeasures.Add(systems[static_cast<size_t>(&other - lists.data())], measure);
            other.push_back(measure);
        }
    }
    void ExpectAsLists(const Lists& expected) const {
        for (size_t p = 0; p < systems.size(); ++p)
            ASSERT_EQ(Forward(systemMeasures, systems[p], static_cast<Measure*>(nullptr)), expected[p]);
    }

    GraphBuilder graph;
    std::vector<System*> systems;
    Lists lists;
    std::minstd_rand random{23};
    int steps = 0;
};

TEST_F(Herd, CommandsThatMakeLinkMoveAndReleaseAreTheListsAndUndoIsTheListsBefore) {
    std::vector<void*> made = {graph.system};
    for (int i = 0; i < 3; ++i) made.push_back(Make<System>());
    graph.Ring(graph.page, "2", made);
    for (void* system : made) systems.push_back(static_cast<System*>(system));
    lists.resize(systems.size());
    lists[0] = {static_cast<Measure*>(graph.measure)};
    pool->EnableUndo();
    size_t most = 0;
    while (steps < kSteps && !HasFailure()) {
        SCOPED_TRACE(steps);
        const Lists before = lists;
        {
            const CommandScope command;
            for (unsigned n = 1 + random() % 40; n > 0; --n) Step();
        }
        ExpectAsLists(lists);
        if (random() % 2) {
            pool->Undo();
            ExpectAsLists(before);
            pool->Redo();
            ExpectAsLists(lists);
        }
        if (random() % 4 == 0) {
            pool->Undo();
            lists = before;
        }
        EXPECT_TRUE(CheckPool(*pool).empty());
        most = std::max<size_t>(most, pool->BlockCount());
    }
    EXPECT_GT(most, 1u) << "blocks must come and go too";
}

struct Item;
struct Owner : SingleRingT<Owner, 100, kTransient> {};
struct Item : ElemT<Item, 100, kTransient> {};

TEST(TransientRelations, ARingTakesPlainObjects) {
    constexpr Relation<SingleRingT<Owner, 100, kTransient>, ElemT<Item, 100, kTransient>> ring;
    Owner owner{};
    Item items[3]{};
    ring.Add(&owner, &items[0]);
    ring.Add(&owner, &items[2]);
    ring.Insert(&owner, &items[1], &items[0]);
    std::vector<Item*> met;
    for (Item* item : ring.Of(&owner)) met.push_back(item);
    EXPECT_EQ(met, (std::vector<Item*>{&items[0], &items[1], &items[2]}));
    ring.Remove(&owner, &items[2]);
    EXPECT_EQ(ring.Last(&owner), &items[1]);
}

using RelationsDeath = Relations;

TEST_F(RelationsDeath, WhatIsLinkedIsNotAddedAndWhatIsNotIsNotRemoved) {
    auto *system = Make<System>(), *other = Make<System>();
    auto* measure = Make<Measure>();
    auto* connection = Make<Connection>();
    systemMeasures.Add(system, measure);
    systemConnections.Add(system, connection);
    EXPECT_DEATH(systemMeasures.Add(other, measure), "s && b && !\\(b -> source\\)");
    EXPECT_DEATH(systemMeasures.Insert(other, measure, nullptr), "par\\(t\\) == NULL");
    EXPECT_DEATH(systemMeasures.Remove(Make<Measure>()), "t && t && s");
    EXPECT_DEATH(systemConnections.Add(other, connection), "s && b && !\\(b -> next\\)");
    systemConnections.Add(other, Make<Connection>());
    EXPECT_DEATH(systemConnections.Remove(other, connection), "ptr == t");
}

}  // namespace
}  // namespace corvane::test
