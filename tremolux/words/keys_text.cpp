#include "tremolux/words/keys_text.h"

#include "library/formats/numbers.h"
#include "tremolux/words/json_text.h"

namespace tremolux {

std::string KeysTable(const std::vector<ListedKey> &keys) {
    std::string text = "parameter,frame,value\n";
    for (const ListedKey &key : keys)
        text += key.parameter + "," + FormatNumber(key.frame) + "," + FormatNumber(key.value) + "\n";
    return text;
}

std::string KeysJson(const std::string &camera, int frames_per_second, const std::vector<ListedKey> &keys) {
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const ListedKey &key : keys)
        list.push_back({{"id", key.id}, {"parameter", key.parameter}, {"frame", key.frame}, {"value", key.value}});
    return JsonText({{"camera", camera}, {"frames_per_second", frames_per_second}, {"keys", list}});
}

}  // namespace tremolux
