/// @file
/// The array management library: the only road to the storage array.
///
/// Calls that read or change the array answer with an `int` code or an `api_Status_t`, where 0 is
/// success. They are made one at a time, each under the access gate (qrvapi/gate.h); a call that
/// needs no gate says so. Every call may be made from any thread. None throws, and none keeps a
/// pointer that it was given.
///
/// Records that a call hands out belong to the caller until they go back through the call's own
/// `api_free...`, or through free() where the call says so.
#ifndef QRVAPI_H
#define QRVAPI_H

#include "qrvapi/access.h"
#include "qrvapi/conversions.h"
#include "qrvapi/events.h"
#include "qrvapi/gate.h"
#include "qrvapi/hostchanges.h"
#include "qrvapi/hosts.h"
#include "qrvapi/log.h"
#include "qrvapi/patterns.h"
#include "qrvapi/personas.h"
#include "qrvapi/ports.h"
#include "qrvapi/remotecopy.h"
#include "qrvapi/sets.h"
#include "qrvapi/status.h"
#include "qrvapi/stringtable.h"
#include "qrvapi/system.h"
#include "qrvapi/types.h"
#include "qrvapi/vluns.h"
#include "qrvapi/volumes.h"

#endif
