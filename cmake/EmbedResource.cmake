# Turns INPUT into the C++ source OUTPUT that holds its bytes under the name SYMBOL. The assembler
# copies the file in, which takes no time whatever its size.
file(WRITE ${OUTPUT} "#include <string_view>

asm(\".section .rodata\\n\"
    \".balign 16\\n\"
    \"brindlet_resource_${SYMBOL}:\\n\"
    \".incbin \\\"${INPUT}\\\"\\n\"
    \"brindlet_resource_${SYMBOL}_end:\\n\"
    \".byte 0\\n\"
    \".previous\\n\");

extern \"C\" const char brindlet_resource_${SYMBOL}[];
extern \"C\" const char brindlet_resource_${SYMBOL}_end[];

namespace brindlet::resources {
extern const std::string_view ${SYMBOL};
const std::string_view ${SYMBOL}{
    brindlet_resource_${SYMBOL},
    static_cast<std::size_t>(brindlet_resource_${SYMBOL}_end - brindlet_resource_${SYMBOL})};
}  // namespace brindlet::resources
")
