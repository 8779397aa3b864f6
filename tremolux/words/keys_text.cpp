#include "tremolux/words/keys_text.h"

#include "library/formats/numbers.h"

namespace tremolux {

std::string KeysTable(const std::vector<ListedKey> &keys) {
    std::string text = "parameter,frame,value\n";
    for (const ListedKey &key : keys)
        text += key.parameter + "," + FormatNumber(key.frame) + "," + FormatNumber(key.value) + "\n";
    return text;
}

}  // namespace tremolux
