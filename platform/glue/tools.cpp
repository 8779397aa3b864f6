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

Vector GetOptimalAngle(const Vector &hpb_old, const Vector &hpb_new, ROTATIONORDER order) {
    Vector hpb;
    host_table->math->optimal_angle(ToTable(&hpb_old), ToTable(&hpb_new), order, ToTable(&hpb));
    return hpb;
}

Real SNoise(const Vector &p, Real t) { return host_table->math->noise4(ToTable(&p), t); }
