#include "library/trace/json_value.h"

#include <cmath>

#include "host/scene/node.h"

namespace tremolux {
namespace {

Json JsonContainer(const host::Container &container, const HostAtom *document) {
    Json object = Json::object();
    for (std::int32_t i = 0; i < container.Count(); ++i) {
        object[std::to_string(container.IdAt(i))] = JsonValue(*container.DataAt(i), document);
    }
    return object;
}

Json JsonLink(const host::Data &data, const HostAtom *document) {
    const auto *node = static_cast<const host::Node *>(data.Link(document));
    return node != nullptr ? Json(node->Name()) : Json();
}

Json JsonMatrix(const host::Data &data) {
    Json rows = Json::array();
    const host::Matrix &matrix = *data.value.matrix;
    for (const host::Vector &row : {matrix.off, matrix.v1, matrix.v2, matrix.v3}) rows.push_back(JsonVector(row));
    return rows;
}

}  // namespace

Json JsonNumber(double value) {
    if (std::isnan(value)) return "nan";
    if (std::isinf(value)) return value > 0 ? "inf" : "-inf";
    return value;
}

Json JsonVector(const host::Vector &vector) {
    return Json::array({JsonNumber(vector.x), JsonNumber(vector.y), JsonNumber(vector.z)});
}

Json JsonValue(const host::Data &data, const HostAtom *document) {
    switch (data.type) {
        case host::kDataNil:
            return Json();
        case host::kDataWhole:
            return data.Whole();
        case host::kDataReal:
            return JsonNumber(data.Real());
        case host::kDataTime:
            return JsonNumber(host::Seconds(data.GetTime()));
        case host::kDataVector:
            return JsonVector(data.GetVector());
        case host::kDataMatrix:
            return JsonMatrix(data);
        case host::kDataString:
        case host::kDataFilename:
            return data.Text();
        case host::kDataLink:
            return JsonLink(data, document);
        case host::kDataContainer:
            return JsonContainer(*data.GetContainer(), document);
        default:
            return "type " + std::to_string(data.type);
    }
}

}  // namespace tremolux
