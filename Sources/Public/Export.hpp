#pragma once

/// Marks what the library lets be seen from outside; everything else is hidden.
#define RELLINOR_PUBLIC [[gnu::visibility("default")]]
