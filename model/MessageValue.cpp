#include "model/MessageValue.h"
