// Objects: transform and tags.
#include "c4d_baseobject.h"
#include "platform/glue/handles.h"

namespace {

const ObjectTable *Table() { return host_table->object; }

Vector GetVector(const BaseObject *object, LONG which) {
    Vector value;
    Table()->get_vector(ToHost(object), which, ToTable(&value));
    return value;
}

void SetVector(BaseObject *object, LONG which, const Vector &value) {
    Table()->set_vector(ToHost(object), which, ToTable(&value));
}

}  // namespace

BaseObject *BaseObject::Alloc(LONG type) { return FromHost<BaseObject>(Table()->create(type)); }

void BaseObject::Free(BaseObject *&object) {
    if (object) host_table->list->release(ToHost(object));
    object = NULL;
}

Vector BaseObject::GetAbsPos() const { return GetVector(this, TABLE_ABS_POSITION); }
Vector BaseObject::GetAbsScale() const { return GetVector(this, TABLE_ABS_SCALE); }
Vector BaseObject::GetAbsRot() const { return GetVector(this, TABLE_ABS_ROTATION); }
void BaseObject::SetAbsPos(const Vector &value) { SetVector(this, TABLE_ABS_POSITION, value); }
void BaseObject::SetAbsScale(const Vector &value) { SetVector(this, TABLE_ABS_SCALE, value); }
void BaseObject::SetAbsRot(const Vector &value) { SetVector(this, TABLE_ABS_ROTATION, value); }
Vector BaseObject::GetFrozenPos() const { return GetVector(this, TABLE_FROZEN_POSITION); }
Vector BaseObject::GetFrozenScale() const { return GetVector(this, TABLE_FROZEN_SCALE); }
Vector BaseObject::GetFrozenRot() const { return GetVector(this, TABLE_FROZEN_ROTATION); }
void BaseObject::SetFrozenPos(const Vector &value) { SetVector(this, TABLE_FROZEN_POSITION, value); }
void BaseObject::SetFrozenScale(const Vector &value) { SetVector(this, TABLE_FROZEN_SCALE, value); }
void BaseObject::SetFrozenRot(const Vector &value) { SetVector(this, TABLE_FROZEN_ROTATION, value); }
Vector BaseObject::GetRelPos() const { return GetVector(this, TABLE_REL_POSITION); }
Vector BaseObject::GetRelScale() const { return GetVector(this, TABLE_REL_SCALE); }
Vector BaseObject::GetRelRot() const { return GetVector(this, TABLE_REL_ROTATION); }
void BaseObject::SetRelPos(const Vector &value) { SetVector(this, TABLE_REL_POSITION, value); }
void BaseObject::SetRelScale(const Vector &value) { SetVector(this, TABLE_REL_SCALE, value); }
void BaseObject::SetRelRot(const Vector &value) { SetVector(this, TABLE_REL_ROTATION, value); }

Matrix BaseObject::GetMl() const {
    Matrix matrix;
    Table()->local_matrix(ToHost(this), ToTable(&matrix));
    return matrix;
}

void BaseObject::SetMl(const Matrix &matrix) { Table()->set_local_matrix(ToHost(this), ToTable(&matrix)); }

Matrix BaseObject::GetMg() const {
    Matrix matrix;
    Table()->global_matrix(ToHost(this), ToTable(&matrix));
    return matrix;
}

void BaseObject::SetMg(const Matrix &matrix) { Table()->set_global_matrix(ToHost(this), ToTable(&matrix)); }

Matrix BaseObject::GetUpMg() const {
    Matrix matrix;
    Table()->parent_matrix(ToHost(this), ToTable(&matrix));
    return matrix;
}

Matrix BaseObject::GetMln() const {
    Matrix matrix = GetMl();
    matrix.Normalize();
    return matrix;
}

Matrix BaseObject::GetMgn() const {
    Matrix matrix = GetMg();
    matrix.Normalize();
    return matrix;
}

void BaseObject::CopyMatrixTo(BaseObject *destination) { Table()->copy_matrix(ToHost(this), ToHost(destination)); }

ROTATIONORDER BaseObject::GetRotationOrder() const {
    return static_cast<ROTATIONORDER>(Table()->rotation_order(ToHost(this)));
}

void BaseObject::SetRotationOrder(ROTATIONORDER order) { Table()->set_rotation_order(ToHost(this), order); }

BaseTag *BaseObject::GetFirstTag() { return FromHost<BaseTag>(Table()->first_tag(ToHost(this))); }

BaseTag *BaseObject::GetTag(LONG type, LONG nr) { return FromHost<BaseTag>(Table()->tag(ToHost(this), type, nr)); }

BaseTag *BaseObject::MakeTag(LONG type, BaseTag *pred) {
    BaseTag *tag = BaseTag::Alloc(type);
    if (tag) InsertTag(tag, pred);
    return tag;
}

void BaseObject::InsertTag(BaseTag *tag, BaseTag *pred) {
    Table()->insert_tag(ToHost(this), ToHost(tag), ToHost(pred));
}

void BaseObject::KillTag(LONG type, LONG nr) {
    BaseTag *tag = GetTag(type, nr);
    BaseTag::Free(tag);
}

BaseTag *BaseTag::Alloc(LONG type) { return FromHost<BaseTag>(Table()->create_tag(type)); }

void BaseTag::Free(BaseTag *&tag) {
    if (tag) host_table->list->release(ToHost(tag));
    tag = NULL;
}

BaseObject *BaseTag::GetObject() { return FromHost<BaseObject>(Table()->tag_object(ToHost(this))); }
