// Built without any of what cmake/Hardening.cmake asks for.

int main() {
    return 0;
}
