#include "model/ValueAction.h"
