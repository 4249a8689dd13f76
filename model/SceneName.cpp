#include "model/SceneName.h"
