#include "platform/Resources.h"
