#include "app/Window.h"
