// The matrix that a frame writes: its axes have the length 1, so that playing never scales the camera.
#include "tests/source/probe.h"

namespace {

class OutputMatrix : public WithProbe {
  protected:
    // The scale that a camera has after this matrix was written to it.
    host::Vector ScaleOf(const Matrix &matrix) {
        if (!other_) {
            other_ = host::Object::Create(host::kTypeCamera).release();
            document_->InsertObject(other_);
        }
        reinterpret_cast<BaseObject *>(static_cast<HostAtom *>(other_))->SetMg(matrix);
        return other_->GetTransform().scale;
    }
    host::Object *other_ = nullptr;
};

TEST_F(OutputMatrix, IsThatOfTheAnglesNormalised) {
    for (const LONG id : {6028, 6029, 6030}) State().SetReal(id, 0.4);
    int unlike = 0, changed_of_them = 0;
    for (int frame = 0; frame <= 200; ++frame) {
        Show(frame);
        Matrix matrix = HPBToMatrix(Data()->GetVector(kPreviousRotation), ROTATIONORDER_HPB);
        const host::Vector plain = ScaleOf(matrix);
        matrix.Normalize();
        if (host::operator==(plain, ScaleOf(matrix))) continue;
        ++unlike;
        changed_of_them += !host::operator==(camera_->GetTransform().scale, plain);
    }
    EXPECT_GT(unlike, 0) << "the angles' matrix is off by its rounding";
    // A root that is not inlined rounds a little differently on some systems, so that not each of them has to be
    // changed.
    EXPECT_GT(changed_of_them * 2, unlike);
}

}  // namespace
