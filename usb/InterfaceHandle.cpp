#include "usb/InterfaceHandle.h"
