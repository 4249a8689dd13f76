#include "editor/options/PopUpValue.h"
