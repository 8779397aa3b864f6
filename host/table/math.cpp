#include "host/scene/angles.h"
#include "host/services/noise.h"
#include "host/table/guard.h"
#include "host/table/internal.h"
#include "host/value/expression.h"
#include "host/value/text.h"

namespace host {

namespace {

double Noise3(const TableVector *point) { return point == nullptr ? 0 : SignedNoise(point->x, point->y, point->z); }

double Noise4(const TableVector *point, double time) {
    return point == nullptr ? 0 : SignedNoise(point->x, point->y, point->z, time);
}

void MatrixToHpbEntry(const TableMatrix *matrix, std::int32_t order, TableVector *out) {
    if (out == nullptr) return;
    *out = matrix == nullptr ? Vector{0, 0, 0} : MatrixToHpb(*matrix, order);
}

void HpbToMatrixEntry(const TableVector *hpb, std::int32_t order, TableMatrix *out) {
    if (out == nullptr) return;
    *out = hpb == nullptr ? kIdentity : HpbToMatrix(*hpb, order);
}

void OptimalAngleEntry(const TableVector *old_hpb, const TableVector *new_hpb, std::int32_t order, TableVector *out) {
    if (out == nullptr) return;
    if (new_hpb == nullptr)
        *out = {0, 0, 0};
    else
        *out = old_hpb == nullptr ? *new_hpb : OptimalAngle(*old_hpb, *new_hpb, order);
}

std::int32_t Parse(const TableString *text, double *out) {
    if (text == nullptr || out == nullptr) return 0;
    return Guarded<std::int32_t>(0, [&] { return ParseExpression(ToUtf8(text), out) ? 1 : 0; });
}

}  // namespace

const MathTable *MathEntries() {
    static const MathTable table = {Noise3, Noise4, MatrixToHpbEntry, HpbToMatrixEntry, OptimalAngleEntry, Parse};
    return &table;
}

}  // namespace host
