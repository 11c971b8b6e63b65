// The header defines all members, so that a program's static initialisers find them constructed.

#include "GlobalParams.h"
