#include <gtest/gtest.h>

#include <memory>

#include "host/scene/document.h"
#include "host/scene/object.h"
#include "host/value/container.h"
#include "host/value/link.h"

namespace host {
namespace {

class Links : public ::testing::Test {
  protected:
    // The document owns what is inserted.
    Object *Insert(Document *into) {
        Object *object = Object::Create(kTypeNull).release();
        into->InsertObject(object);
        return object;
    }
    Document document, other_document;
};

TEST_F(Links, ResolveOnlyInTheDocumentThatHoldsTheGoal) {
    const Data link = Data::LinkTo(Insert(&document));
    EXPECT_NE(link.Link(&document), nullptr);
    EXPECT_EQ(link.Link(&other_document), nullptr);
    EXPECT_EQ(link.Link(nullptr), nullptr);
    EXPECT_NE(ResolveAnywhere(link.value.link), nullptr);
}

TEST_F(Links, ResolveOnlyToTheTypeThatIsAskedFor) {
    const Data link = Data::LinkTo(Insert(&document));
    EXPECT_NE(link.Link(&document, kTypeObject), nullptr);
    EXPECT_NE(link.Link(&document, kTypeNull), nullptr);
    EXPECT_EQ(link.Link(&document, kTypeCamera), nullptr);
}

TEST_F(Links, AreEmptyWhenTheGoalIsGoneAndBackWhenItIsBack) {
    Object *object = Insert(&document);
    const Data link = Data::LinkTo(object);
    object->Remove();
    EXPECT_EQ(link.Link(&document), nullptr);
    EXPECT_EQ(ResolveAnywhere(link.value.link), object);
    document.InsertObject(object);
    EXPECT_EQ(link.Link(&document), object);
    object->Remove();
    delete object;
    EXPECT_EQ(ResolveAnywhere(link.value.link), nullptr);
    EXPECT_EQ(link.Link(&document), nullptr);
}

TEST_F(Links, CopiesPointToTheSameGoal) {
    Object *object = Insert(&document);
    Container container;
    container.Set(1, Data::LinkTo(object));
    const Container copy(container);
    EXPECT_EQ(copy.Link(1, &document, kTypeObject), object);
    EXPECT_TRUE(copy == container);
    container.Set(1, Data::LinkTo(nullptr));
    EXPECT_EQ(container.Link(1, &document), nullptr);
    EXPECT_FALSE(copy == container);
}

TEST_F(Links, CopiesInATranslationPointToTheCopy) {
    Object *original = Insert(&document), *copy = Insert(&document), *outside = Insert(&document);
    HostAliasTrans translation;
    translation.copies[original] = copy->Anchor();
    Container inner, container, translated;
    inner.Set(1, Data::LinkTo(original));
    container.Set(1, Data(inner));
    container.Set(2, Data::LinkTo(outside));
    translated.CopyFrom(container, &translation);
    EXPECT_EQ(translated.Find(1)->GetContainer()->Link(1, &document), copy);
    EXPECT_EQ(translated.Link(2, &document), outside);
    EXPECT_EQ(container.Find(1)->GetContainer()->Link(1, &document), original);
}

TEST_F(Links, AreTurnedAfterwardsWhenTheGoalWasCopiedLater) {
    Object *a = Insert(&document), *b = Insert(&document), *outside = Insert(&document);
    Object *copy_of_a = Insert(&document), *copy_of_b = Insert(&document);
    HostAliasTrans translation;
    Container inner;
    inner.Set(7, Data::LinkTo(b));
    a->Data().Set(1, Data(inner));
    a->Data().Set(2, Data::LinkTo(outside));
    copy_of_a->Data().CopyFrom(a->Data(), &translation);  // b has no copy yet
    translation.copies[a] = copy_of_a->Anchor();
    translation.copies[b] = copy_of_b->Anchor();

    TurnLinks(translation, true);
    EXPECT_EQ(copy_of_a->Data().Find(1)->GetContainer()->Link(7, &document), copy_of_b);
    EXPECT_EQ(copy_of_a->Data().Link(2, &document), outside);
    TurnLinks(translation, false);
    EXPECT_EQ(copy_of_a->Data().Find(1)->GetContainer()->Link(7, &document), copy_of_b);
    EXPECT_EQ(copy_of_a->Data().Link(2, &document), nullptr);
    EXPECT_EQ(a->Data().Link(2, &document), outside);
}

}  // namespace
}  // namespace host
