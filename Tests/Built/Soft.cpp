// Built without any of what cmake/Hardening.cmake asks for, and with more on the stack than a page.

int main() {
    volatile char large[100'000]; // NOLINT(*-c-arrays)
    large[0] = 0;
    return large[0];
}
