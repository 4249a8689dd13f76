#include "platform/MainQueue.h"
