// Angles and noise.
#include "c4d_shader.h"
#include "c4d_tools.h"
#include "platform/glue/handles.h"

Vector MatrixToHPB(const Matrix &m, ROTATIONORDER rot_order) {
    Vector hpb;
    host_table->math->matrix_to_hpb(ToTable(&m), rot_order, ToTable(&hpb));
    return hpb;
}

Matrix HPBToMatrix(const Vector &hpb, ROTATIONORDER rot_order) {
    Matrix m;
    host_table->math->hpb_to_matrix(ToTable(&hpb), rot_order, ToTable(&m));
    return m;
}

Vector VectorToHPB(const Vector &direction) {
    // A shorter horizontal part gives no heading: the direction is straight up or down.
    const Real kSteep = 0.00001;
    const Real length = Sqrt(direction.x * direction.x + direction.z * direction.z);
    if (length < kSteep) return Vector(0.0, direction.y > 0.0 ? PI05 : -PI05, 0.0);
    Real heading = direction.z > 0.0 ? -ASin(direction.x / length) : PI + ASin(direction.x / length);
    if (heading < 0.0) heading += PI2;
    return Vector(heading, ATan(direction.y / length), 0.0);
}

Vector GetOptimalAngle(const Vector &hpb_old, const Vector &hpb_new, ROTATIONORDER order) {
    Vector hpb;
    host_table->math->optimal_angle(ToTable(&hpb_old), ToTable(&hpb_new), order, ToTable(&hpb));
    return hpb;
}

Real SNoise(const Vector &p) { return host_table->math->noise3(ToTable(&p)); }
Real SNoise(const Vector &p, Real t) { return host_table->math->noise4(ToTable(&p), t); }
Real Noise(const Vector &p) { return 0.5 + 0.5 * SNoise(p); }
Real Noise(const Vector &p, Real t) { return 0.5 + 0.5 * SNoise(p, t); }
