#include "host/value/custom.h"

#include <new>

#include "host/value/memory.h"

namespace host {

HostCustomData *CreateCustomData(std::int32_t type) {
    if (type != kDataSpline && type != kDataPriority) return nullptr;
    if (CustomDataRefused()) return nullptr;
    if (type == kDataSpline) return new (std::nothrow) Spline;
    return new (std::nothrow) Priority;
}

}  // namespace host
