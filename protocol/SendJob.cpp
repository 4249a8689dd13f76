#include "protocol/SendJob.h"
