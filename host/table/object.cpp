#include "host/table/entries.h"
#include "host/table/nodes.h"

namespace host {

HostAtom *ObjectEntries::create(std::int32_t type) {
    return Guarded<HostAtom *>(nullptr, [=]() -> HostAtom * { return Object::Create(type).release(); });
}

void ObjectEntries::get_vector(const HostAtom *atom, std::int32_t which, TableVector *out) {
    if (out == nullptr) return;
    const Object *object = AsObject(atom);
    const Transform transform = object != nullptr ? object->GetTransform() : Transform();
    switch (which) {
        case TABLE_FROZEN_POSITION:
            *out = transform.frozen_position;
            break;
        case TABLE_FROZEN_ROTATION:
            *out = transform.frozen_rotation;
            break;
        case TABLE_REL_POSITION:
            *out = transform.position;
            break;
        case TABLE_REL_ROTATION:
            *out = transform.rotation;
            break;
        default:
            *out = {0, 0, 0};
            break;
    }
}

void ObjectEntries::local_matrix(const HostAtom *atom, TableMatrix *out) {
    const Object *object = AsObject(atom);
    if (out != nullptr) *out = object != nullptr ? object->LocalMatrix() : kIdentity;
}

void ObjectEntries::global_matrix(const HostAtom *atom, TableMatrix *out) {
    const Object *object = AsObject(atom);
    if (out != nullptr) *out = object != nullptr ? object->GlobalMatrix() : kIdentity;
}

void ObjectEntries::set_global_matrix(HostAtom *atom, const TableMatrix *matrix) {
    Object *object = AsObject(atom);
    if (object != nullptr && matrix != nullptr) object->SetGlobalMatrix(*matrix);
}

void ObjectEntries::parent_matrix(const HostAtom *atom, TableMatrix *out) {
    const Object *object = AsObject(atom);
    if (out != nullptr) *out = object != nullptr ? object->ParentMatrix() : kIdentity;
}

void ObjectEntries::insert_tag(HostAtom *atom, HostAtom *tag, HostAtom *predecessor) {
    Object *object = AsObject(atom);
    if (object != nullptr) object->InsertTag(AsTag(tag), AsTag(predecessor));
}

HostAtom *ObjectEntries::create_tag(std::int32_t type) {
    return Guarded<HostAtom *>(nullptr, [=]() -> HostAtom * { return Tag::Create(type).release(); });
}

HostAtom *ObjectEntries::tag_object(const HostAtom *atom) {
    const Tag *tag = AsTag(atom);
    return tag != nullptr ? tag->GetObject() : nullptr;
}

}  // namespace host
