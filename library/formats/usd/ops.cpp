#include "library/formats/usd/ops.h"

#include <algorithm>
#include <cmath>

#include "library/formats/numbers.h"
#include "library/formats/usd/samples.h"
#include "library/moves/camera_move.h"

namespace tremolux {
namespace {

constexpr std::size_t kMaxOps = 256;  // of one prim
constexpr std::string_view kPrefix = "xformOp:", kInvert = "!invert!", kReset = "!resetXformStack!";
constexpr const char *kExpected =
    "an op of translate, scale, rotateX to rotateZ, rotateXYZ to rotateZYX, orient or transform";
constexpr double kMatrixRounding = 1e-6;  // of a matrix's last column

struct OpType {
    std::string_view name;
    UsdOpKind kind;
    int axis;
};
constexpr OpType kTypes[] = {
    {"translate", UsdOpKind::kTranslate, -1}, {"translateX", UsdOpKind::kTranslate, 0},
    {"translateY", UsdOpKind::kTranslate, 1}, {"translateZ", UsdOpKind::kTranslate, 2},
    {"scale", UsdOpKind::kScale, -1},         {"scaleX", UsdOpKind::kScale, 0},
    {"scaleY", UsdOpKind::kScale, 1},         {"scaleZ", UsdOpKind::kScale, 2},
    {"rotateX", UsdOpKind::kTurns, 0},        {"rotateY", UsdOpKind::kTurns, 1},
    {"rotateZ", UsdOpKind::kTurns, 2},        {"orient", UsdOpKind::kOrient, -1},
    {"transform", UsdOpKind::kMatrix, -1},
};

// Of "xformOp:translate:pivot" translate.
bool SetType(std::string_view entry, UsdOp *op) {
    std::string_view name = entry.substr(kPrefix.size());
    name = name.substr(0, name.find(':'));
    for (const OpType &type : kTypes) {
        if (type.name != name) continue;
        op->kind = type.kind;
        op->axis = type.axis;
        return true;
    }
    constexpr std::string_view kRotate = "rotate";
    if (name.substr(0, kRotate.size()) != kRotate) return false;
    const auto order = RotationOrderNamed(name.substr(kRotate.size()));
    if (!order) return false;
    op->kind = UsdOpKind::kTurns;
    op->order = *order;
    return true;
}

UsdOp OpOf(const SourceText &source, std::string_view entry, const char *place) {
    UsdOp op;
    op.place = place;
    std::string_view name = entry;
    op.is_inverted = name.substr(0, kInvert.size()) == kInvert;
    if (op.is_inverted) name.remove_prefix(kInvert.size());
    if (name.substr(0, kPrefix.size()) != kPrefix || !SetType(name, &op))
        source.RefuseAt(place, Quoted(entry), kExpected);
    op.attribute = name;
    return op;
}

host::Matrix FromRows(const UsdNumbers &m) {
    const auto row = [&m](std::size_t i) { return host::Vector{m[4 * i], m[4 * i + 1], m[4 * i + 2]}; };
    return {row(3), row(0), row(1), row(2)};
}

host::Matrix FromQuaternion(UsdNumbers q) {
    const double length = std::sqrt(q[0] * q[0] + q[1] * q[1] + q[2] * q[2] + q[3] * q[3]);
    if (length == 0) return host::kIdentity;
    const double w = q[0] / length, x = q[1] / length, y = q[2] / length, z = q[3] / length;
    return {{0, 0, 0},
            {1 - 2 * (y * y + z * z), 2 * (x * y + w * z), 2 * (x * z - w * y)},
            {2 * (x * y - w * z), 1 - 2 * (x * x + z * z), 2 * (y * z + w * x)},
            {2 * (x * z + w * y), 2 * (y * z - w * x), 1 - 2 * (x * x + y * y)}};
}

std::size_t CountOf(const UsdOp &op) {
    if (op.kind == UsdOpKind::kMatrix) return 16;
    if (op.kind == UsdOpKind::kOrient) return 4;
    return op.axis < 0 ? 3 : 1;
}

// Of an op about one axis the other two stay as they are.
host::Vector Triple(const UsdOp &op, const UsdNumbers &numbers, double other) {
    if (op.axis < 0) return {numbers[0], numbers[1], numbers[2]};
    return {op.axis == 0 ? numbers[0] : other, op.axis == 1 ? numbers[0] : other, op.axis == 2 ? numbers[0] : other};
}

host::Matrix MatrixOf(const SourceText &source, const UsdOp &op, const UsdNumbers &numbers) {
    switch (op.kind) {
        case UsdOpKind::kTranslate: {
            host::Matrix moved = host::kIdentity;
            moved.off = Triple(op, numbers, 0);
            return moved;
        }
        case UsdOpKind::kScale: {
            const host::Vector scale = Triple(op, numbers, 1);
            return {{0, 0, 0}, {scale.x, 0, 0}, {0, scale.y, 0}, {0, 0, scale.z}};
        }
        case UsdOpKind::kTurns: return RotationOf(Triple(op, numbers, 0) * kRadiansPerDegree, op.order);
        case UsdOpKind::kOrient: return FromQuaternion(numbers);
        case UsdOpKind::kMatrix: break;
    }
    const double beside = std::abs(numbers[3]) + std::abs(numbers[7]) + std::abs(numbers[11]) + std::abs(numbers[15] - 1);
    if (!(beside <= kMatrixRounding)) source.RefuseAt(op.place, "a matrix that is no placement", "0, 0, 0 and 1 in its last column");
    return FromRows(numbers);
}

// Of what places the prim; null where it says nothing.
const UsdValue *OrderOf(const UsdPrim &prim) {
    const auto order = prim.attributes.find("xformOpOrder");
    if (order == prim.attributes.end() || !order->second.SaysSomething()) return nullptr;
    return order->second.samples.empty() ? &order->second.value[0] : &order->second.samples[0].value;
}

host::Matrix Undone(const SourceText &source, const UsdOp &op, const host::Matrix &matrix) {
    const double volume = host::Dot(host::Cross(matrix.v1, matrix.v2), matrix.v3);
    const host::Matrix inverse = host::Inverse(matrix);
    if (volume == 0 || !host::IsFinite(inverse))
        source.RefuseAt(op.place, Quoted(op.attribute), "one that can be undone, for !invert!");
    return inverse;
}

}  // namespace

bool UsdTransform::IsAnimated() const {
    return std::any_of(ops.begin(), ops.end(), [this](const UsdOp &op) {
        const auto attribute = prim->attributes.find(op.attribute);
        return attribute != prim->attributes.end() && !attribute->second.samples.empty();
    });
}

std::vector<std::string> OpNames(const UsdPrim &prim) {
    const UsdValue *order = OrderOf(prim);
    return order != nullptr ? order->texts : std::vector<std::string>();
}

UsdTransform TransformOf(const SourceText &source, const UsdPrim &prim) {
    UsdTransform transform;
    transform.prim = &prim;
    const UsdValue *order = OrderOf(prim);
    if (order == nullptr) return transform;
    const UsdValue &value = *order;
    for (const std::string &entry : value.texts) {
        if (entry == kReset) {
            transform.ops.clear();
            transform.resets = true;
            continue;
        }
        if (transform.ops.size() == kMaxOps)
            source.RefuseAt(value.place, "another op", "at most " + std::to_string(kMaxOps));
        const UsdOp op = OpOf(source, entry, value.place);
        transform.ops.push_back(op);
    }
    return transform;
}

host::Matrix MatrixAt(const SourceText &source, const UsdTransform &transform, double time_code) {
    host::Matrix whole = host::kIdentity;
    for (const UsdOp &op : transform.ops) {
        const auto numbers = NumbersAt(source, *transform.prim, op.attribute, time_code, CountOf(op));
        if (!numbers) continue;
        const host::Matrix matrix = MatrixOf(source, op, *numbers);
        whole = whole * (op.is_inverted ? Undone(source, op, matrix) : matrix);
    }
    return whole;
}

}  // namespace tremolux
