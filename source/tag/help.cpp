#include "tag/help.h"

#include <cstring>
#include <string>

namespace {

const CHAR *const kGuide = "guide.html";  // in the module's resource folder

const CHAR *const kUnescaped = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/:";

std::string Bytes(const String &text) {
    std::string bytes(text.GetCStringLen(STRINGENCODING_UTF8) + 1, 0);
    bytes.resize(text.GetCString(&bytes[0], (LONG)bytes.size(), STRINGENCODING_UTF8));
    return bytes;
}

}  // namespace

String FileAddress(const String &path) {
    const CHAR *const digits = "0123456789ABCDEF";
    const std::string bytes = Bytes(path);
    const Bool is_rooted = bytes.compare(0, 1, "/") == 0, has_machine = bytes.compare(0, 2, "\\\\") == 0;
    std::string address = has_machine ? "file:" : is_rooted ? "file://" : "file:///";
    for (const CHAR byte : bytes) {
        const CHAR sign = byte == '\\' && !is_rooted ? '/' : byte;
        if (std::strchr(kUnescaped, sign))
            address += sign;
        else
            address += {'%', digits[(UCHAR)sign >> 4], digits[(UCHAR)sign & 15]};
    }
    return String(address.c_str());
}

void OpenGuide() { GeOpenHTML(FileAddress((GeGetPluginPath() + Filename("res") + Filename(kGuide)).GetString())); }
