/// @file
/// Copies on other arrays. All texts are NUL-terminated.
#ifndef QRVAPI_REMOTECOPY_H
#define QRVAPI_REMOTECOPY_H

/// What objects of remote copy begin with.
typedef struct {
    char rm_name[32];
} api_rcopy_hdr_t;

/// One way to another array.
typedef struct {
    api_rcopy_hdr_t rm_hdr;      ///< Its name on this array.
    char rm_remote_sysname[32];  ///< The name of the other array.
} api_rcopy_target_t;

/// The state of remote copy.
typedef struct {
    unsigned int target_count;
    api_rcopy_target_t* targets;
} api_rcopy_t;

#endif
