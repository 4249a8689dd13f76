#include "model/ButtonAction.h"
