#include "hosts/common/libraries/ProcessHost.h"

TN_VIDEO(HOSTS_EXPORT_FUNCTION)
