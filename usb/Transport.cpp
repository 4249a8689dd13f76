#include "usb/Transport.h"
