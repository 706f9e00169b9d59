// The shared routines: what every room may call.
//
// A door, not a room: the routines are declared here by subject, and small files define them.
#pragma once

#include "core/Dichiarazioni.h"
#include "core/NameTables.h"
#include "core/PathNames.h"
#include "core/RandomFile.h"
#include "core/Reports.h"
#include "core/ScopedFlag.h"
#include "core/Settings.h"
#include "core/StateFiles.h"
#include "core/Strings.h"
