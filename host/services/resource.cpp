#include "host/services/resource.h"

#include "host/files/folders.h"

namespace host {

bool IsResourceFolder(const std::filesystem::path &folder) { return Exists(folder / "c4d_symbols.h", false); }

}  // namespace host
