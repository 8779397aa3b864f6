#include "c4d_file.h"
#include "c4d_resource.h"
#include "platform/glue/handles.h"

GeResource resource;

// A loaded text keeps its place, because LoadString hands out references.
struct GeResource::LoadedString {
    LONG id;
    String text;
    LoadedString *next;
};

Bool GeResource::Init() { return Init(GeGetPluginPath() + "res"); }

Bool GeResource::Init(const Filename &folder) {
    Free();
    if (!host_table || !host_table->general->load_resource(ToTable(&folder))) return FALSE;
    folder_ = folder;
    return TRUE;
}

const String &GeResource::LoadString(LONG id) {
    static const String none;
    for (const LoadedString *loaded = strings_; loaded; loaded = loaded->next)
        if (loaded->id == id) return loaded->text;
    if (!folder_.Content()) return none;
    LoadedString *loaded = gNew LoadedString;
    if (!loaded) return none;
    loaded->id = id;
    host_table->general->resource_string(ToTable(&folder_), id, ToTable(&loaded->text));
    loaded->next = strings_;
    strings_ = loaded;
    return loaded->text;
}

void GeResource::Free() {
    while (strings_) {
        LoadedString *next = strings_->next;
        gDelete(strings_);
        strings_ = next;
    }
    folder_ = Filename();
}

void FreeResource() { resource.Free(); }

namespace {

// Every mark takes the next of the parameters; one without a parameter stays.
String Fill(LONG id, const String *const *parameters, LONG count) {
    const String &pattern = GeLoadString(id);
    String text;
    LONG used = 0, start = 0, mark;
    while (used < count && pattern.FindFirst('#', &mark, start)) {
        text += pattern.SubStr(start, mark - start) + *parameters[used++];
        start = mark + 1;
    }
    return text + pattern.SubStr(start, pattern.GetLength() - start);
}

}  // namespace

const String &GeLoadString(LONG id) { return resource.LoadString(id); }

String GeLoadString(LONG id, const String &p1) {
    const String *const all[] = {&p1};
    return Fill(id, all, 1);
}

String GeLoadString(LONG id, const String &p1, const String &p2) {
    const String *const all[] = {&p1, &p2};
    return Fill(id, all, 2);
}

String GeLoadString(LONG id, const String &p1, const String &p2, const String &p3) {
    const String *const all[] = {&p1, &p2, &p3};
    return Fill(id, all, 3);
}

String GeLoadString(LONG id, const String &p1, const String &p2, const String &p3, const String &p4) {
    const String *const all[] = {&p1, &p2, &p3, &p4};
    return Fill(id, all, 4);
}
