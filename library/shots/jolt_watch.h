// Tells on which frames a jolt hits.
#pragma once

#include "generated/module_ids.h"
#include "host/scene/tag.h"

namespace tremolux {

class JoltWatch {
  public:
    explicit JoltWatch(const host::Tag &tag) : tag_(tag) {}
    // After each evaluated frame: what a jolt fires is lost bit by bit, so whatever is no smaller than it was has just
    // been fired.
    bool Hit() {
        bool hit = false;
        for (Fired *fired : {&position_, &rotation_}) {
            const double level = tag_.Data().Real(fired->id);
            hit = hit || (level > 0 &&
                          (level > fired->last || (level == fired->last && tag_.Data().Real(ids::kJoltFalloff) > 0)));
            fired->last = level;
        }
        return hit && tag_.Data().Whole(ids::kUseJolt) != 0;
    }

  private:
    struct Fired {
        std::int32_t id;
        double last;
    };
    const host::Tag &tag_;
    Fired position_{ids::kJoltPositionTarget, 0}, rotation_{ids::kJoltRotationTarget, 0};
};

}  // namespace tremolux
