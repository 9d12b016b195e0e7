#include "hosts/common/libraries/ProcessHost.h"

TN_REG(HOSTS_EXPORT_FUNCTION)
