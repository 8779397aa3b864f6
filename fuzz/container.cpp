// Sequences of calls on a container, against a list of pairs that does the same in the plainest way.
#include "host/value/container.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

#include "fuzz/require.h"

namespace {

using Entry = std::pair<std::int32_t, std::int32_t>;
using Model = std::vector<Entry>;

Model::iterator FirstOf(Model *model, std::int32_t id) {
    return std::find_if(model->begin(), model->end(), [id](const Entry &entry) { return entry.first == id; });
}

void Set(Model *model, std::int32_t id, std::int32_t value) {
    const auto found = FirstOf(model, id);
    if (found == model->end()) {
        model->emplace_back(id, value);
    } else {
        found->second = value;
    }
}

void Compare(const host::Container &container, const Model &model) {
    fuzz::Require(container.Count() == static_cast<std::int32_t>(model.size()));
    for (std::size_t i = 0; i < model.size(); ++i) {
        const std::int32_t place = static_cast<std::int32_t>(i);
        fuzz::Require(container.IdAt(place) == model[i].first);
        fuzz::Require(container.DataAt(place)->Whole() == model[i].second);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    host::Container container, copy;
    Model model, copied;
    for (std::size_t i = 0; i + 2 < size; i += 3) {
        const std::int32_t id = data[i + 1] % 8 - 3, value = data[i + 2];
        switch (data[i] % 8) {
            case 0:
                container.Set(id, host::Data(value));
                Set(&model, id, value);
                break;
            case 1:
                container.Append(id, host::Data(value));
                model.emplace_back(id, value);
                break;
            case 2: {
                const auto found = FirstOf(&model, id);
                fuzz::Require(container.Remove(id) == (found != model.end()));
                if (found != model.end()) model.erase(found);
                break;
            }
            case 3: {
                const bool there = value < static_cast<std::int32_t>(model.size());
                fuzz::Require(container.RemoveAt(value) == there);
                if (there) model.erase(model.begin() + value);
                break;
            }
            case 4:  // copies share until one of them is written to
                copy = container;
                copied = model;
                break;
            case 5:
                std::swap(container, copy);
                std::swap(model, copied);
                break;
            case 6:
                container.Flush();
                model.clear();
                break;
            default: {
                const auto found = FirstOf(&model, id);
                fuzz::Require(container.Has(id) == (found != model.end()));
                if (host::Data *live = container.Live(id)) {
                    *live = host::Data(value);
                    found->second = value;
                }
            }
        }
        Compare(container, model);
        Compare(copy, copied);
    }
    return 0;
}
