#include "library/interface/buffer.h"

#include <memory>

namespace tremolux {

tremolux_buffer NewBuffer(std::string bytes) {
    auto *owner = new std::string(std::move(bytes));
    return {owner->c_str(), owner->size(), owner};
}

}  // namespace tremolux

void tremolux_buffer_free(tremolux_buffer *buffer) {
    if (buffer == nullptr) return;
    delete static_cast<std::string *>(buffer->owner);
    *buffer = {};
}
