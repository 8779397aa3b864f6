#include "host/scene/angles.h"
#include "host/services/noise.h"
#include "host/table/entries.h"
#include "host/table/guard.h"

namespace host {

double MathEntries::noise4(const TableVector *point, double time) {
    return point == nullptr ? 0 : SignedNoise(point->x, point->y, point->z, time);
}

void MathEntries::matrix_to_hpb(const TableMatrix *matrix, std::int32_t order, TableVector *out) {
    if (out == nullptr) return;
    *out = matrix == nullptr ? Vector{0, 0, 0} : MatrixToHpb(*matrix, order);
}

void MathEntries::hpb_to_matrix(const TableVector *hpb, std::int32_t order, TableMatrix *out) {
    if (out == nullptr) return;
    *out = hpb == nullptr ? kIdentity : HpbToMatrix(*hpb, order);
}

void MathEntries::optimal_angle(const TableVector *old_hpb, const TableVector *new_hpb, std::int32_t order,
                                TableVector *out) {
    if (out == nullptr) return;
    if (new_hpb == nullptr)
        *out = {0, 0, 0};
    else
        *out = old_hpb == nullptr ? *new_hpb : OptimalAngle(*old_hpb, *new_hpb, order);
}

}  // namespace host
