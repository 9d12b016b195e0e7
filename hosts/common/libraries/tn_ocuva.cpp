#include "hosts/common/libraries/ProcessHost.h"

TN_OCUVA(HOSTS_EXPORT_FUNCTION)
