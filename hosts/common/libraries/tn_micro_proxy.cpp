#include "hosts/common/libraries/ProcessHost.h"

TN_MICRO_PROXY(HOSTS_EXPORT_FUNCTION)
