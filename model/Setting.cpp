#include "model/Setting.h"
