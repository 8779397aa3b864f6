// What a tag remembers and no panel shows, and what of it changed.
#pragma once

#include <map>
#include <set>

#include "host/scene/tag.h"
#include "library/trace/json_value.h"

namespace tremolux {

class PrivateState {
  public:
    explicit PrivateState(const host::Tag &tag);
    // By id, in rising order: every entry that is not described and differs from the last call's, at first all; null
    // for one that is gone.
    Json Changes();

  private:
    const host::Tag &tag_;
    std::set<std::int32_t> described_;
    std::map<std::int32_t, host::Data> last_;
};

}  // namespace tremolux
