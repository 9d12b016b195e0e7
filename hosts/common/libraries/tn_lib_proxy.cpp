#include "hosts/common/libraries/ProcessHost.h"

TN_LIB_PROXY(HOSTS_EXPORT_FUNCTION)
