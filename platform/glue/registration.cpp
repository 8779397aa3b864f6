// Registration, and the way back: what the host calls, turned into calls of the plug-in's virtual operations.
#include "c4d_commanddata.h"
#include "c4d_tagdata.h"
#include "platform/glue/handles.h"

// A friend of NodeData.
struct NodeThunks {
    static NodeCallbacks Callbacks();
};

namespace {

// Pointers to functions and to data are only convertible into each other on some systems: on all that the module is
// built for.
static_assert(sizeof(DataAllocator *) == sizeof(void *), "an allocator travels through the border as a pointer");

template <class Plugin>
Plugin *As(ModuleObject *self) {
    return static_cast<Plugin *>(static_cast<BaseData *>(self));
}

void Destroy(ModuleObject *self) { static_cast<BaseData *>(self)->Destructor(); }

}  // namespace

NodeCallbacks NodeThunks::Callbacks() {
    NodeCallbacks calls;
    calls.allocate = [](void *registration) -> ModuleObject * {
        BaseData *made = reinterpret_cast<DataAllocator *>(registration)();
        return made;
    };
    calls.destroy = Destroy;
    calls.attach = [](ModuleObject *self, HostAtom *node) {
        As<NodeData>(self)->private_link = FromHost<GeListNode>(node);
    };
    calls.init = [](ModuleObject *self, HostAtom *node) -> int32_t {
        return As<NodeData>(self)->Init(FromHost<GeListNode>(node));
    };
    calls.free = [](ModuleObject *self, HostAtom *node) { As<NodeData>(self)->Free(FromHost<GeListNode>(node)); };
    calls.read = [](ModuleObject *self, HostAtom *node, HostHyperFile *file, int32_t level) -> int32_t {
        return As<NodeData>(self)->Read(FromHost<GeListNode>(node), FromHost(file), level);
    };
    calls.write = [](ModuleObject *self, HostAtom *node, HostHyperFile *file) -> int32_t {
        return As<NodeData>(self)->Write(FromHost<GeListNode>(node), FromHost(file));
    };
    calls.copy_to = [](ModuleObject *self, ModuleObject *destination, HostAtom *source_node, HostAtom *destination_node,
                       int32_t flags, HostAliasTrans *translation) -> int32_t {
        return As<NodeData>(self)->CopyTo(As<NodeData>(destination), FromHost<GeListNode>(source_node),
                                          FromHost<GeListNode>(destination_node), static_cast<COPYFLAGS>(flags),
                                          FromHost(translation));
    };
    calls.message = [](ModuleObject *self, HostAtom *node, int32_t type, void *data) -> int32_t {
        return As<NodeData>(self)->Message(FromHost<GeListNode>(node), type, data);
    };
    calls.get_description = [](ModuleObject *self, HostAtom *node, HostDescription *description,
                               int32_t *flags) -> int32_t {
        DESCFLAGS_DESC own = static_cast<DESCFLAGS_DESC>(*flags);
        const Bool answer = As<NodeData>(self)->GetDDescription(FromHost<GeListNode>(node), FromHost(description), own);
        *flags = own;
        return answer;
    };
    calls.get_parameter = [](ModuleObject *self, HostAtom *node, const TableDescID *id, TableData *data,
                             int32_t *flags) -> int32_t {
        DESCFLAGS_GET own = static_cast<DESCFLAGS_GET>(*flags);
        const Bool answer =
            As<NodeData>(self)->GetDParameter(FromHost<GeListNode>(node), *FromTable(id), *FromTable(data), own);
        *flags = own;
        return answer;
    };
    calls.set_parameter = [](ModuleObject *self, HostAtom *node, const TableDescID *id, const TableData *data,
                             int32_t *flags) -> int32_t {
        DESCFLAGS_SET own = static_cast<DESCFLAGS_SET>(*flags);
        const Bool answer =
            As<NodeData>(self)->SetDParameter(FromHost<GeListNode>(node), *FromTable(id), *FromTable(data), own);
        *flags = own;
        return answer;
    };
    calls.get_enabling = [](ModuleObject *self, HostAtom *node, const TableDescID *id, const TableData *data,
                            int32_t flags, const TableContainer *settings) -> int32_t {
        return As<NodeData>(self)->GetDEnabling(FromHost<GeListNode>(node), *FromTable(id), *FromTable(data),
                                                static_cast<DESCFLAGS_ENABLE>(flags), FromTable(settings));
    };
    return calls;
}

Bool RegisterTagPlugin(LONG id, const String &str, LONG info, DataAllocator *g, const String &description,
                       BaseBitmap *icon, LONG disklevel) {
    if (!host_table || !g) return FALSE;
    TagRegistration tag;
    tag.id = id;
    tag.info = info;
    tag.disk_level = disklevel;
    tag.name = ToTable(&str);
    tag.description = ToTable(&description);
    tag.icon = ToHost(icon);
    tag.registration = reinterpret_cast<void *>(g);
    tag.node = NodeThunks::Callbacks();
    tag.execute = [](ModuleObject *self, HostAtom *node, HostAtom *document, HostAtom *object, HostThread *thread,
                     int32_t priority, int32_t flags) -> int32_t {
        return As<TagData>(self)->Execute(FromHost<BaseTag>(node), FromHost<BaseDocument>(document),
                                          FromHost<BaseObject>(object), FromHost(thread), priority,
                                          static_cast<EXECUTIONFLAGS>(flags));
    };
    tag.add_to_execution = [](ModuleObject *self, HostAtom *node, HostPriorityList *list) -> int32_t {
        return As<TagData>(self)->AddToExecution(FromHost<BaseTag>(node), FromHost(list));
    };
    return host_table->general->register_tag(&tag);
}

Bool RegisterCommandPlugin(LONG id, const String &str, LONG info, BaseBitmap *icon, const String &help,
                           CommandData *dat) {
    if (!host_table || !dat) return FALSE;
    CommandRegistration command;
    command.id = id;
    command.info = info;
    command.name = ToTable(&str);
    command.help = ToTable(&help);
    command.icon = ToHost(icon);
    command.self = static_cast<BaseData *>(dat);
    command.destroy = Destroy;
    command.execute = [](ModuleObject *self, HostAtom *document) -> int32_t {
        return As<CommandData>(self)->Execute(FromHost<BaseDocument>(document));
    };
    command.get_state = [](ModuleObject *self, HostAtom *document) -> int32_t {
        return As<CommandData>(self)->GetState(FromHost<BaseDocument>(document));
    };
    return host_table->general->register_command(&command);
}
