// Stands between a program and the memory of the system, by LD_PRELOAD: the request for memory
// whose number is in RELLINOR_FAILING_REQUEST has no answer, nor has any later one if
// RELLINOR_FAILING_ON is set. At the end the number of requests is written to the file
// RELLINOR_REQUESTS.

#define _GNU_SOURCE

#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <stddef.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

extern void* __libc_malloc(size_t size);
extern void* __libc_calloc(size_t count, size_t size);
extern void* __libc_realloc(void* memory, size_t size);
extern void* __libc_memalign(size_t alignment, size_t size);

static unsigned long requests;
static unsigned long failing;
static int fails_on;
static int file = -1; // opened before the program may give up the right to

__attribute__((constructor)) static void begin(void) {
    const char* const path = getenv("RELLINOR_REQUESTS");
    const char* const number = getenv("RELLINOR_FAILING_REQUEST");
    fails_on = getenv("RELLINOR_FAILING_ON") != NULL;
    if (path != NULL) {
        file = open(path, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    }
    requests = 0;
    failing = number != NULL ? strtoul(number, NULL, 10) : 0;
}

__attribute__((destructor)) static void end(void) {
    char text[32];
    failing = 0;
    if (file >= 0) {
        const int length = snprintf(text, sizeof text, "%lu", requests);
        if (write(file, text, (size_t)length) != length) {
            _exit(99);
        }
        close(file);
    }
}

/// Whether a library asks that frees memory twice if it gets none: libseccomp, as long as 2.5.4 is
/// about.
static int is_of_seccomp(const void* caller) {
    Dl_info place;
    return dladdr(caller, &place) != 0 && strstr(place.dli_fname, "libseccomp") != NULL;
}

static int is_refused(const void* caller) {
    if (is_of_seccomp(caller)) {
        return 0;
    }
    ++requests;
    if (failing == 0 || (fails_on ? requests < failing : requests != failing)) {
        return 0;
    }
    errno = ENOMEM;
    return 1;
}

void* malloc(size_t size) {
    return is_refused(__builtin_return_address(0)) ? NULL : __libc_malloc(size);
}

void* calloc(size_t count, size_t size) {
    return is_refused(__builtin_return_address(0)) ? NULL : __libc_calloc(count, size);
}

void* realloc(void* memory, size_t size) {
    return is_refused(__builtin_return_address(0)) ? NULL : __libc_realloc(memory, size);
}

void* aligned_alloc(size_t alignment, size_t size) {
    return is_refused(__builtin_return_address(0)) ? NULL : __libc_memalign(alignment, size);
}

int posix_memalign(void** memory, size_t alignment, size_t size) {
    *memory = is_refused(__builtin_return_address(0)) ? NULL : __libc_memalign(alignment, size);
    return *memory == NULL ? ENOMEM : 0;
}
