#include "tremolux/process/temporary_folder.h"

#include <string>

#include "host/services/platform.h"
#include "library/failure.h"

namespace tremolux {

namespace fs = std::filesystem;

TemporaryFolder::TemporaryFolder() {
    static int count = 0;
    std::error_code error;
    const fs::path place = fs::temp_directory_path(error);
    do {
        path_ = place / ("tremolux-" + std::to_string(host::ProcessId()) + "-" + std::to_string(count++));
    } while (!error && fs::exists(path_, error));
    if (error || !fs::create_directory(path_, error))
        throw Failure(kExitOutput, "no temporary folder can be made, expected one that takes new files");
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

}  // namespace tremolux
