#include "protocol/SceneAction.h"
