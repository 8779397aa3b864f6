#include "platform/glue/host.h"

const HostTable *host_table = NULL;
Filename *module_file = NULL;
