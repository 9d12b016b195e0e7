#include "hosts/common/libraries/ProcessHost.h"

TN_VDUTI(HOSTS_EXPORT_FUNCTION)
