// The panel's callbacks where the host has nothing to give them.
#include "host/description/description.h"

#include "host/scene/document.h"
#include "lib_description.h"
#include "platform/glue/host.h"
#include "tag/cameraloader.h"
#include "tests/source/plain_tag.h"

namespace {

// Hands the module nodes without a container, until it goes out of scope.
class NodesWithoutContainer {
  public:
    NodesWithoutContainer() : table_(*host_table), list_(*host_table->list), kept_(host_table) {
        list_.data = [](HostAtom *) -> TableContainer * { return nullptr; };
        table_.list = &list_;
        host_table = &table_;
    }
    ~NodesWithoutContainer() { host_table = kept_; }

  private:
    HostTable table_;
    ListTable list_;
    const HostTable *kept_;
};

class PanelCallbacks : public WithPlainTag {
  protected:
    void SetUp() override {
        WithPlainTag::SetUp();
        // A handle of the host's is the module's document.
        document_ = reinterpret_cast<BaseDocument *>(static_cast<HostAtom *>(application().NewDocument()));
        node_ = BaseObject::Alloc(Ocamera);
        document_->InsertObject(node_, NULL, NULL);
        description_ = Description::Alloc();
    }
    void TearDown() override {
        Description::Free(description_);
        WithPlainTag::TearDown();
    }
    // Its description is registered with the module's start.
    void StartModule() { ASSERT_EQ(c4d_main(C4DPL_INIT, nullptr, nullptr, nullptr), 1); }
    Bool Describe(GeListNode *node, Description *description) {
        return tag_->GetDDescription(node, description, flags_);
    }
    Bool Enables(LONG id, GeListNode *node) {
        return tag_->GetDEnabling(node, DescLevel(id), GeData(), DESCFLAGS_ENABLE_0, NULL);
    }
    BaseDocument *document_ = NULL;
    BaseObject *node_ = NULL;
    Description *description_ = NULL;
    DESCFLAGS_DESC flags_ = DESCFLAGS_DESC_0;
};

TEST_F(PanelCallbacks, FailToDescribeWhereTheDescriptionCannotBeLoaded) {
    EXPECT_FALSE(Describe(node_, description_));
    EXPECT_EQ(flags_, DESCFLAGS_DESC_0);
}

TEST_F(PanelCallbacks, FailToDescribeATagWithoutContainer) {
    StartModule();
    {
        const NodesWithoutContainer scope;
        EXPECT_FALSE(Describe(node_, description_));
    }
    EXPECT_EQ(flags_, DESCFLAGS_DESC_0);
    EXPECT_TRUE(Describe(node_, description_));
    EXPECT_EQ(flags_, DESCFLAGS_DESC_LOADED);
    application().registry.Clear();
}

TEST_F(PanelCallbacks, FailToDescribeNothing) {
    StartModule();
    EXPECT_FALSE(Describe(NULL, description_));
    EXPECT_FALSE(Describe(node_, NULL));
    application().registry.Clear();
}

TEST_F(PanelCallbacks, EnableEverythingWhereThereIsNoTagOrNoContainer) {
    const NodesWithoutContainer scope;
    for (const LONG id : {6020, 6047, 6071, 6156}) {
        EXPECT_TRUE(Enables(id, NULL)) << id;
        EXPECT_TRUE(Enables(id, node_)) << id;
    }
}

}  // namespace
