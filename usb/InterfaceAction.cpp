#include "usb/InterfaceAction.h"
