#include "platform/WholeFile.h"
