#include "platform/Diagnostics.h"
