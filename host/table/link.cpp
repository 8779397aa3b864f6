#include "host/value/link.h"

#include "host/table/entries.h"
#include "host/table/guard.h"

namespace host {

HostAtom *LinkEntries::resolve(const HostLink *link, const HostAtom *document, std::int32_t instance_of) {
    return Guarded<HostAtom *>(nullptr, [&] { return ResolveLink(link, document, instance_of); });
}

}  // namespace host
