#include "host/scene/object.h"

#include "host/scene/tag.h"

namespace host {
namespace {

constexpr std::int32_t kTypePolygon = 5100, kTypeSpline = 5101, kTypeLight = 5102;
constexpr std::int32_t kUndefinedVisibility = 2;

struct KnownType {
    std::int32_t type;
    const char *name;
};
constexpr KnownType kKnownTypes[] = {{kTypePolygon, "Polygon"},
                                     {kTypeSpline, "Spline"},
                                     {kTypeLight, "Light"},
                                     {kTypeCamera, "Camera"},
                                     {kTypeNull, "Null"}};

const KnownType *FindKnown(std::int32_t type) {
    for (const KnownType &known : kKnownTypes) {
        if (known.type == type) return &known;
    }
    return nullptr;
}

struct WholeDefault {
    std::int32_t id, value;
};
struct RealDefault {
    std::int32_t id;
    double value;
};
// Visibility, generator on, colour off, no x-ray.
constexpr WholeDefault kObjectWholes[] = {
    {901, kUndefinedVisibility}, {902, kUndefinedVisibility}, {906, 1}, {kParamUseColor, 0}, {909, 0}};
// Lengths of the lens in millimetres, distances in scene units.
constexpr RealDefault kCameraReals[] = {{kCameraFocalLength, 36},
                                        {kCameraZoom, 1},
                                        {kCameraAperture, 36},
                                        {kCameraFocusDistance, 2000},
                                        {1112, 0},
                                        {1113, 1000},
                                        {1115, 0},
                                        {1116, 1000},
                                        {1118, 0},
                                        {1119, 0},
                                        {1122, 0},
                                        {1128, 0}};
constexpr WholeDefault kCameraWholes[] = {
    {kCameraProjection, 0}, {1007, 1}, {kCameraUseTarget, 0}, {1111, 0}, {1114, 0}, {1123, 0}, {1129, 0}};

void SetObjectDefaults(Container *data) {
    for (const WholeDefault &entry : kObjectWholes) data->Set(entry.id, Data(entry.value));
    data->Set(kParamColor, Data(Vector{0.8, 0.8, 0.8}));
}

void SetCameraDefaults(Container *data) {
    for (const RealDefault &entry : kCameraReals) data->SetReal(entry.id, entry.value);
    for (const WholeDefault &entry : kCameraWholes) data->Set(entry.id, Data(entry.value));
    data->Set(kCameraFocusObject, Data::LinkTo(nullptr));
}

}  // namespace

Object::Object(std::int32_t type) : Node(type) { tags_.owner = this; }

Object::~Object() {
    Detach();
    DestroyChildren();
    DestroyBranches();
}

std::unique_ptr<Object> Object::Create(std::int32_t type) {
    const KnownType *known = FindKnown(type);
    if (known == nullptr) return nullptr;
    std::unique_ptr<Object> object(new Object(type));
    object->Data() = Container(type);
    object->SetName(known->name);
    SetObjectDefaults(&object->Data());
    if (type == kTypeCamera) SetCameraDefaults(&object->Data());
    return object;
}

Node *Object::CreateSameKind() const { return Create(Type()).release(); }

bool Object::IsInstanceOf(std::int32_t type) const { return Node::IsInstanceOf(type); }

Document *Object::GetDocument() const {
    const Node *top = this;
    while (top->Up() != nullptr) top = top->Up();
    const NodeList *list = static_cast<const Object *>(top)->List();
    return list != nullptr && list->owner != nullptr ? list->owner->GetDocument() : nullptr;
}

void Object::SetTransform(const Transform &transform) {
    transform_ = transform;
    SetDirty(kDirtyMatrix);
}

void Object::SetLocalMatrix(const Matrix &matrix) {
    transform_.SetLocal(matrix);
    SetDirty(kDirtyMatrix);
}

Matrix Object::ParentMatrix() const { return Parent() != nullptr ? Parent()->GlobalMatrix() : kIdentity; }

Matrix Object::GlobalMatrix() const {
    Matrix matrix = LocalMatrix();
    for (const Object *parent = Parent(); parent != nullptr; parent = parent->Parent()) {
        matrix = parent->LocalMatrix() * matrix;
    }
    return matrix;
}

void Object::SetGlobalMatrix(const Matrix &matrix) {
    SetLocalMatrix(Parent() != nullptr ? Inverse(ParentMatrix()) * matrix : matrix);
}

Tag *Object::FirstTag() const { return static_cast<Tag *>(tags_.first); }

Tag *Object::FindTag(std::int32_t type, std::int32_t number) const {
    if (number < 0) return nullptr;
    for (Node *tag = tags_.first; tag != nullptr; tag = tag->Next()) {
        if (tag->IsInstanceOf(type) && number-- == 0) return static_cast<Tag *>(tag);
    }
    return nullptr;
}

void Object::InsertTag(Tag *tag, Tag *predecessor) { tags_.InsertAfter(tag, predecessor); }

Tag *Object::MakeTag(std::int32_t type, Tag *predecessor) {
    std::unique_ptr<Tag> tag = Tag::Create(type);
    if (tag) InsertTag(tag.get(), predecessor);
    return tag.release();
}

void Object::DestroyBranches() { tags_.Clear(); }

bool Object::CopyOwnState(Node *copy, std::int32_t flags, HostAliasTrans *translation) const {
    Object *object = static_cast<Object *>(copy);
    object->SetTransform(transform_);
    if ((flags & kCopyNoBranches) == 0) {
        for (Node *tag = tags_.first; tag != nullptr; tag = tag->Next()) {
            Node *copied = tag->CloneTree(flags, translation);
            if (copied == nullptr) return false;
            object->tags_.InsertLast(copied);
        }
    }
    if ((flags & kCopyNoHierarchy) != 0) return true;
    for (Node *child = Down(); child != nullptr; child = child->Next()) {
        Node *copied = child->CloneTree(flags, translation);
        if (copied == nullptr) return false;
        copied->InsertUnderLast(object);
    }
    return true;
}

}  // namespace host
