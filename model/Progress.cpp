#include "model/Progress.h"
