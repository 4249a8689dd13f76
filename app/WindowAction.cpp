#include "app/WindowAction.h"
