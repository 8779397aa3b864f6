#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <functional>
#include <limits>
#include <utility>
#include <vector>

#include "host/value/container.h"
#include "host/value/custom.h"
#include "host/value/descid.h"

namespace host {
namespace {

TEST(Container, KeepsTheOrderInWhichEntriesWereAdded) {
    Container container;
    container.Set(30, Data(1));
    container.Set(-7, Data(2));
    container.Set(12, Data(3));
    container.Set(30, Data(4));  // an existing entry keeps its place
    ASSERT_EQ(container.Count(), 3);
    EXPECT_EQ(container.IdAt(0), 30);
    EXPECT_EQ(container.IdAt(1), -7);
    EXPECT_EQ(container.IdAt(2), 12);
    EXPECT_EQ(container.IdAt(3), -1);
    EXPECT_EQ(container.IdAt(-1), -1);
    EXPECT_EQ(container.Whole(30), 4);
    EXPECT_EQ(container.IndexOf(12), 2);
    EXPECT_EQ(container.IndexOf(13), -1);
}

TEST(Container, TakesAnyNumberAsAnId) {
    Container container;
    const std::int32_t ids[] = {-1, 0, std::numeric_limits<std::int32_t>::min(),
                                std::numeric_limits<std::int32_t>::max()};
    for (std::int32_t id : ids) container.Set(id, Data(static_cast<double>(id)));
    for (std::int32_t id : ids) EXPECT_EQ(container.Real(id), static_cast<double>(id));
}

TEST(Container, AppendsBesideAnExistingEntryAndFindsTheFirst) {
    Container container;
    container.Append(5, Data(1));
    container.Append(5, Data(2));
    container.Append(5, Data(3));
    EXPECT_EQ(container.Count(), 3);
    EXPECT_EQ(container.Whole(5), 1);
    EXPECT_TRUE(container.Remove(5));
    EXPECT_EQ(container.Whole(5), 2);
    EXPECT_TRUE(container.RemoveAt(0));
    EXPECT_EQ(container.Whole(5), 3);
    EXPECT_TRUE(container.Remove(5));
    EXPECT_FALSE(container.Remove(5));
    EXPECT_FALSE(container.RemoveAt(0));
    EXPECT_FALSE(container.RemoveAt(-1));
}

TEST(Container, RemovingALaterEntryOfTheSameIdLeavesTheFirst) {
    Container container;
    container.Append(5, Data(1));
    container.Append(6, Data(9));
    container.Append(5, Data(2));
    EXPECT_TRUE(container.RemoveAt(2));
    EXPECT_EQ(container.Whole(5), 1);
    EXPECT_EQ(container.Count(), 2);
}

TEST(Container, CopiesAreTheirOwn) {
    Container inner;
    inner.Set(1, Data("inside"));
    Container container(77);
    container.Set(2, Data(inner));
    container.Set(3, Data(Vector{1, 2, 3}));

    Container copy(container);
    EXPECT_EQ(copy.id, 77);
    EXPECT_TRUE(copy == container);
    copy.Live(2)->GetContainer()->Set(1, Data("changed"));
    copy.Live(3)->value.vector->x = 10;
    EXPECT_EQ(container.Find(2)->GetContainer()->Text(1), "inside");
    EXPECT_EQ(container.GetVector(3).x, 1);
    EXPECT_FALSE(copy == container);
}

TEST(Container, ACopySharesItsEntriesUntilOneIsWrittenTo) {
    Container inner, original;
    inner.Set(1, Data("inside"));
    original.Set(2, Data(inner));
    Container copy(original);
    EXPECT_EQ(copy.Find(2), original.Find(2));
    copy.Set(3, Data(3));
    EXPECT_NE(copy.Find(2), original.Find(2));
    EXPECT_EQ(copy.Find(2)->GetContainer()->Find(1), original.Find(2)->GetContainer()->Find(1)) << "deeper ones too";
    EXPECT_FALSE(original.Has(3));
}

TEST(Container, AValueThatMayBeWrittenThroughIsNotShared) {
    Container original;
    original.Set(1, Data(1));
    Data *live = original.Live(1);
    const Container copy(original);
    *live = Data(2);
    EXPECT_EQ(copy.Whole(1), 1);
    EXPECT_EQ(original.Whole(1), 2);
}

TEST(Container, EveryKindOfWriteStaysInTheContainerThatWasWrittenTo) {
    const std::vector<std::function<void(Container *)>> writes = {
        [](Container *c) { c->Set(1, Data(9)); },
        [](Container *c) { c->SetReal(1, 9); },
        [](Container *c) { c->SetReal(2, 9); },
        [](Container *c) {
            c->SetVector(3, {9, 9, 9});
        },
        [](Container *c) { c->Append(1, Data(9)); },
        [](Container *c) { c->Remove(2); },
        [](Container *c) { c->RemoveAt(0); },
        [](Container *c) { c->Flush(); },
        [](Container *c) { c->Sort(); },
        [](Container *c) { *c->Live(3) = Data(9); },
        [](Container *c) { *c->LiveAt(0) = Data(9); },
        [](Container *c) { c->Live(4)->GetContainer()->Set(1, Data(9)); },
        [](Container *c) { c->SetParameter(MakeId(4, 1), Data(9)); },
        [](Container *c) { c->SetParameter(MakeId(3, 1000), Data(9.0)); },
        [](Container *c) { *c = Container(); },
        [](Container *c) { c->Merge(*c->Find(4)->GetContainer()); },
    };
    for (std::size_t i = 0; i < writes.size(); ++i) {
        SCOPED_TRACE(i);
        const auto build = [] {
            Container inner, container;
            inner.Set(1, Data(1));
            container.Set(4, Data(inner));
            container.Set(3, Data(Vector{1, 2, 3}));
            container.Set(2, Data(2.5));
            container.Set(1, Data("one"));
            return container;
        };
        const Container untouched = build();
        Container original = build(), copy(original), second(copy);
        writes[i](&copy);
        EXPECT_TRUE(original == untouched);
        EXPECT_TRUE(second == untouched);
        EXPECT_FALSE(copy == untouched);
        EXPECT_GT(copy.Dirty(), 0u);
        writes[i](&original);
        EXPECT_TRUE(original == copy);
        EXPECT_TRUE(second == untouched);
    }
}

TEST(Container, SortingOrdersByIdAndKeepsEqualIdsInTheirOrder) {
    Container container;
    container.Append(9, Data(1));
    container.Append(-4, Data(2));
    container.Append(9, Data(3));
    container.Append(-4, Data(4));
    container.Sort();
    const std::int32_t values[] = {2, 4, 1, 3};
    for (std::int32_t i = 0; i < 4; ++i) EXPECT_EQ(container.DataAt(i)->Whole(), values[i]);
    EXPECT_EQ(container.Whole(9), 1);
}

TEST(Container, ValuesKeepTheirAddressUntilTheyAreRemoved) {
    Container container;
    container.Set(1, Data(1));
    const Data *first = container.Find(1);
    for (std::int32_t i = 2; i < 500; ++i) container.Set(i, Data(i));
    container.Remove(250);
    container.Set(1, Data("a text now"));
    container.Sort();
    EXPECT_EQ(container.Find(1), first);
    EXPECT_EQ(first->Text(), "a text now");
}

TEST(Container, AnEntryMayBeSetToItselfOrToAValueInsideItself) {
    Container inner;
    inner.Set(5, Data("deep"));
    Container container;
    container.Set(1, Data(inner));
    container.Set(1, *container.Find(1));
    EXPECT_EQ(container.Find(1)->GetContainer()->Text(5), "deep");
    container.Set(1, *container.Find(1)->GetContainer()->Find(5));
    EXPECT_EQ(container.Text(1), "deep");
    container.Append(2, *container.Find(1));
    EXPECT_EQ(container.Text(2), "deep");
}

TEST(Container, MayBeReplacedByOneOfItsOwnEntries) {
    Container inner(8);
    inner.Set(5, Data(6));
    Container container(7);
    container.Set(1, Data(inner));
    container = *container.Find(1)->GetContainer();
    EXPECT_EQ(container.id, 8);
    EXPECT_EQ(container.Whole(5), 6);
    const Container &same = container;
    container = same;
    EXPECT_EQ(container.Whole(5), 6);
}

TEST(Container, MergingSetsEveryEntryOfTheSource) {
    Container target, source;
    target.Set(1, Data(1));
    target.Set(2, Data(2));
    source.Set(2, Data(20));
    source.Set(3, Data(30));
    target.Merge(source);
    EXPECT_EQ(target.Count(), 3);
    EXPECT_EQ(target.Whole(1), 1);
    EXPECT_EQ(target.Whole(2), 20);
    EXPECT_EQ(target.Whole(3), 30);
    EXPECT_EQ(target.IndexOf(2), 1);
}

TEST(Container, MergingWithAnEntryOfItsOwnReplacesThatEntry) {
    Container inner;
    inner.Set(1, Data("new"));
    Container container;
    container.Set(1, Data(inner));
    container.Merge(*container.Find(1)->GetContainer());
    EXPECT_EQ(container.Text(1), "new");
}

TEST(Container, NumbersConvertAndOtherTypesCountAsMissing) {
    Container container;
    container.Set(1, Data(2.9));
    container.Set(2, Data(3));
    container.Set(3, Data("text"));
    EXPECT_EQ(container.Whole(1), 2);
    EXPECT_EQ(container.Real(2), 3.0);
    EXPECT_EQ(container.Whole(3, 8), 8);
    EXPECT_EQ(container.Real(3, 0.5), 0.5);
    EXPECT_EQ(container.Real(4, 0.25), 0.25);
    EXPECT_EQ(container.Text(1), "");
    EXPECT_TRUE(container.GetVector(3) == (Vector{0, 0, 0}));
    EXPECT_EQ(container.GetTime(3).denominator, 1);
    EXPECT_EQ(container.Link(3, nullptr), nullptr);
}

TEST(Container, DirtyGrowsWithEveryWrite) {
    Container container;
    std::uint32_t last = container.Dirty();
    const auto grew = [&] { return container.Dirty() > std::exchange(last, container.Dirty()); };
    container.Set(1, Data(1));
    EXPECT_TRUE(grew());
    container.SetReal(1, 2);
    EXPECT_TRUE(grew());
    container.SetReal(1, 3);
    EXPECT_TRUE(grew());
    container.SetVector(2, {1, 2, 3});
    EXPECT_TRUE(grew());
    container.SetVector(2, {1, 2, 4});
    EXPECT_TRUE(grew());
    container.Remove(1);
    EXPECT_TRUE(grew());
    container.Flush();
    EXPECT_TRUE(grew());
    container = Container();
    EXPECT_TRUE(grew());
}

TEST(Container, ShortWritesDoWhatSetDoes) {
    Container container;
    container.Set(1, Data("was a text"));
    container.SetReal(1, 1.5);
    container.SetVector(2, {1, 2, 3});
    EXPECT_EQ(container.Find(1)->type, kDataReal);
    EXPECT_EQ(container.Real(1), 1.5);
    const TableVector *vector = container.Find(2)->value.vector;
    container.SetVector(2, {4, 5, 6});
    EXPECT_EQ(container.Find(2)->value.vector, vector);  // written in place
    EXPECT_TRUE(container.GetVector(2) == (Vector{4, 5, 6}));
}

TEST(Container, EqualityLooksAtOrderIdsAndValues) {
    Container a, b, c;
    a.Set(1, Data(1));
    a.Set(2, Data(2));
    b.Set(2, Data(2));
    b.Set(1, Data(1));
    EXPECT_TRUE(a != b);
    c = a;
    EXPECT_TRUE(a == c);
    c.SetReal(2, 2);  // a real 2 is not the whole number 2
    EXPECT_TRUE(a != c);
    EXPECT_TRUE(Container() == Container(5));
}

TEST(Container, ParametersReachIntoSubContainersAndVectorComponents) {
    Container inner;
    inner.Set(20, Data(Vector{1, 2, 3}));
    Container container;
    container.Set(10, Data(inner));
    TableDescID id = MakeId(10, 20);
    id.level[id.depth++].id = kVectorY;
    Data value;
    ASSERT_TRUE(container.GetParameter(id, &value));
    EXPECT_EQ(value.Real(), 2);
    ASSERT_TRUE(container.SetParameter(id, Data(7)));
    EXPECT_TRUE(container.Find(10)->GetContainer()->GetVector(20) == (Vector{1, 7, 3}));
    EXPECT_FALSE(container.SetParameter(id, Data("seven")));
    id.level[2].id = 1003;
    EXPECT_FALSE(container.GetParameter(id, &value));
    EXPECT_FALSE(container.SetParameter(id, Data(1)));
    EXPECT_FALSE(container.GetParameter(MakeId(11, 20), &value));
    EXPECT_FALSE(container.SetParameter(MakeId(11, 20), Data(1)));
    EXPECT_FALSE(container.GetParameter(TableDescID{}, &value));
    EXPECT_FALSE(container.SetParameter(TableDescID{}, Data(1)));
}

TEST(Container, ParametersOfAKnownTypeMakeWhatIsMissing) {
    Container container;
    TableDescID component = MakeId(1, kVectorZ), nested = MakeId(2, 3);
    component.level[0].dtype = kDataVector;
    nested.level[0].dtype = 5;  // a sub-container
    EXPECT_TRUE(container.SetParameter(component, Data(4.0)));
    EXPECT_TRUE(container.GetVector(1) == (Vector{0, 0, 4}));
    EXPECT_TRUE(container.SetParameter(nested, Data("text")));
    EXPECT_EQ(container.Find(2)->GetContainer()->Text(3), "text");
}

TEST(Container, AHostileDepthStaysInsideTheId) {
    Container container;
    container.Set(0, Data(1));
    TableDescID id{};
    Data value;
    id.depth = 1000000;
    EXPECT_FALSE(container.GetParameter(id, &value));
    EXPECT_FALSE(container.SetParameter(id, Data(1)));
    id.depth = -5;
    EXPECT_FALSE(container.GetParameter(id, &value));
    EXPECT_EQ(LevelId(id, 0), 0);
}

RC_GTEST_PROP(ContainerProperty, BehavesLikeAPlainList, ()) {
    Container container;
    std::vector<std::pair<std::int32_t, std::int32_t>> model;
    const auto first = [&](std::int32_t id) {
        auto place = model.begin();
        while (place != model.end() && place->first != id) ++place;
        return place;
    };
    const auto steps = *rc::gen::container<std::vector<std::pair<int, int>>>(
        rc::gen::pair(rc::gen::inRange(0, 4), rc::gen::inRange(-3, 4)));
    std::int32_t value = 0;
    for (const auto &[action, id] : steps) {
        const auto place = first(id);
        ++value;
        if (action == 0) {
            container.Set(id, Data(value));
            if (place == model.end())
                model.emplace_back(id, value);
            else
                place->second = value;
        } else if (action == 1) {
            container.Append(id, Data(value));
            model.emplace_back(id, value);
        } else if (action == 2) {
            RC_ASSERT(container.Remove(id) == (place != model.end()));
            if (place != model.end()) model.erase(place);
        } else {
            container.Sort();
            std::stable_sort(model.begin(), model.end(),
                             [](const auto &a, const auto &b) { return a.first < b.first; });
        }
        RC_ASSERT(container.Count() == static_cast<std::int32_t>(model.size()));
        for (std::int32_t i = 0; i < container.Count(); ++i) {
            RC_ASSERT(container.IdAt(i) == model[static_cast<std::size_t>(i)].first);
            RC_ASSERT(container.DataAt(i)->Whole() == model[static_cast<std::size_t>(i)].second);
        }
        for (std::int32_t probe = -3; probe < 4; ++probe) {
            const auto wanted = first(probe);
            RC_ASSERT(container.Has(probe) == (wanted != model.end()));
            if (wanted != model.end()) RC_ASSERT(container.Whole(probe) == wanted->second);
        }
    }
}

}  // namespace
}  // namespace host
