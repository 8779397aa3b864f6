#include "c4d_file.h"
#include "c4d_resource.h"
#include "platform/glue/handles.h"

GeResource resource;

Bool GeResource::Init() {
    const Filename folder = GeGetPluginPath() + "res";
    return host_table && host_table->general->load_resource(ToTable(&folder));
}
