// The tag's class by itself, for its operations that need no scene.
#pragma once

#include "tag/tremoluxcam.h"
#include "tests/source/glue.h"

class WithPlainTag : public WithGlue {
  protected:
    void SetUp() override {
        WithGlue::SetUp();
        tag_ = gNew TremoluxCamClass;
        ASSERT_NE(tag_, nullptr);
    }
    void TearDown() override { gDelete(tag_); }
    TremoluxCamClass *tag_ = NULL;
};
