#include "tag/help.h"

#include <cstring>
#include <vector>

namespace {

const CHAR *const kGuide = "guide.html";  // in the module's resource folder

const CHAR *const kUnescaped = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/:";

// In UTF-8, with a zero behind.
std::vector<CHAR> Bytes(const String &text) {
    std::vector<CHAR> bytes(text.GetCStringLen(STRINGENCODING_UTF8) + 1);
    text.GetCString(&bytes[0], (LONG)bytes.size(), STRINGENCODING_UTF8);
    return bytes;
}

void Append(const CHAR *text, std::vector<CHAR> *address) {
    address->insert(address->end(), text, text + std::strlen(text));
}

}  // namespace

String FileAddress(const String &path) {
    const CHAR *const digits = "0123456789ABCDEF";
    const std::vector<CHAR> bytes = Bytes(path);
    const Bool is_rooted = bytes[0] == '/', has_machine = std::strncmp(&bytes[0], "\\\\", 2) == 0;
    std::vector<CHAR> address;
    Append(has_machine ? "file:" : is_rooted ? "file://" : "file:///", &address);
    for (const CHAR *byte = &bytes[0]; *byte; byte++) {
        const CHAR sign = *byte == '\\' && !is_rooted ? '/' : *byte;
        const CHAR plain[] = {sign, 0}, escaped[] = {'%', digits[(UCHAR)sign >> 4], digits[(UCHAR)sign & 15], 0};
        Append(std::strchr(kUnescaped, sign) ? plain : escaped, &address);
    }
    address.push_back(0);
    return String(&address[0]);
}

void OpenGuide() { GeOpenHTML(FileAddress((GeGetPluginPath() + Filename("res") + Filename(kGuide)).GetString())); }
