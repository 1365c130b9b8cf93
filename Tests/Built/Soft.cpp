// Built without any of what cmake/Hardening.cmake asks for, and with more on the stack than a page.

// Something that is writable and can be executed, and code that is changed while loading.
asm(R"(.pushsection .soft.data, "awx", %progbits
       .8byte 0
       .popsection
       .pushsection .soft.text, "ax", %progbits
       .8byte stdout
       .popsection)");

namespace Rellinor::Tests {

int soft() {
    volatile char large[100'000]; // NOLINT(*-c-arrays)
    large[0] = 0;
    return large[0];
}

} // namespace Rellinor::Tests

int main() {
    return Rellinor::Tests::soft();
}
