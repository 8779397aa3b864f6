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

}  // namespace

BaseObject *BaseObject::Alloc(LONG type) { return FromHost<BaseObject>(Table()->create(type)); }

void BaseObject::Free(BaseObject *&object) {
    if (object) host_table->list->release(ToHost(object));
    object = NULL;
}

Vector BaseObject::GetFrozenPos() const { return GetVector(this, TABLE_FROZEN_POSITION); }
Vector BaseObject::GetFrozenRot() const { return GetVector(this, TABLE_FROZEN_ROTATION); }
Vector BaseObject::GetRelPos() const { return GetVector(this, TABLE_REL_POSITION); }
Vector BaseObject::GetRelRot() const { return GetVector(this, TABLE_REL_ROTATION); }

Matrix BaseObject::GetMl() const {
    Matrix matrix;
    Table()->local_matrix(ToHost(this), ToTable(&matrix));
    return matrix;
}

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

BaseTag *BaseObject::MakeTag(LONG type, BaseTag *pred) {
    BaseTag *tag = BaseTag::Alloc(type);
    if (tag) InsertTag(tag, pred);
    return tag;
}

void BaseObject::InsertTag(BaseTag *tag, BaseTag *pred) {
    Table()->insert_tag(ToHost(this), ToHost(tag), ToHost(pred));
}

BaseTag *BaseTag::Alloc(LONG type) { return FromHost<BaseTag>(Table()->create_tag(type)); }

void BaseTag::Free(BaseTag *&tag) {
    if (tag) host_table->list->release(ToHost(tag));
    tag = NULL;
}

BaseObject *BaseTag::GetObject() { return FromHost<BaseObject>(Table()->tag_object(ToHost(this))); }
