#include "app/Impresion.h"
