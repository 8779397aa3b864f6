#include "tremolux/formats/format.h"

#include <algorithm>

#include "host/files/safe_write.h"
#include "host/value/text.h"
#include "tremolux/failure.h"
#include "tremolux/formats/chan.h"
#include "tremolux/formats/csv.h"
#include "tremolux/formats/source_text.h"

namespace tremolux {
namespace {

namespace fs = std::filesystem;

// A move of the greatest length, every number in full, stays below; larger files are something else.
constexpr std::uintmax_t kMaxFileBytes = std::uintmax_t{1} << 28;

std::string LowerCase(std::string text) {
    for (char &c : text) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return text;
}

std::string KnownExtensions() {
    std::string list;
    for (const MoveFormat &format : MoveFormats()) list += (list.empty() ? "" : " or ") + std::string(format.extension);
    return list;
}

}  // namespace

const std::vector<MoveFormat> &MoveFormats() {
    static const std::vector<MoveFormat> formats = {{"camera table", ".csv", ReadCsv, WriteCsv},
                                                    {"channel file", ".chan", ReadChan, WriteChan}};
    return formats;
}

const MoveFormat &FormatOf(const fs::path &file) {
    const std::string extension = LowerCase(host::PathText(file.extension()));
    for (const MoveFormat &format : MoveFormats()) {
        if (extension == format.extension) return format;
    }
    throw Failure(kExitInput, host::PathText(file) + ": found the extension " + Quoted(extension) + ", expected " +
                                  KnownExtensions());
}

CameraMove ReadMove(const fs::path &file, const FormatOptions &options) {
    const std::string name = host::PathText(file);
    const std::string expected = ", expected a camera file (" + KnownExtensions() + ")";
    const MoveFormat &format = FormatOf(file);
    std::error_code error;
    if (!fs::exists(file, error)) throw Failure(kExitInput, name + ": found no such file" + expected);
    if (!fs::is_regular_file(file, error)) throw Failure(kExitInput, name + ": found something else" + expected);
    const std::uintmax_t size = fs::file_size(file, error);
    if (error || size > kMaxFileBytes) throw Failure(kExitInput, name + ": found a file of absurd size" + expected);
    std::string bytes, reason;
    if (!host::ReadFile(file, &bytes, &reason)) {
        throw Failure(kExitInput, name + ": found a file that cannot be read" + expected);
    }
    return format.read(name, bytes, options);
}

}  // namespace tremolux
