#include "host/services/resource.h"

#include <system_error>

namespace host {

bool IsResourceFolder(const std::filesystem::path &folder) {
    std::error_code ignored;
    return std::filesystem::is_regular_file(folder / "c4d_symbols.h", ignored);
}

}  // namespace host
