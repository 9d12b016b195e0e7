#include "hosts/common/libraries/ProcessHost.h"

TN_LOG(HOSTS_EXPORT_FUNCTION)
TN_LOG_KEYS(HOSTS_EXPORT_FUNCTION)
