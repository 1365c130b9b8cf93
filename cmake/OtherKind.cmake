# The library as the other kind, static beside shared or shared beside static, made of the same
# objects. A consumer of the package chooses; see RellinorConfig.cmake.in.

if(BUILD_SHARED_LIBS)
    add_library(RellinorOtherKind STATIC "$<TARGET_OBJECTS:Rellinor>")
else()
    add_library(RellinorOtherKind SHARED "$<TARGET_OBJECTS:Rellinor>")
endif()

# What the library links and hands on is the same.
set_target_properties(RellinorOtherKind PROPERTIES
    EXPORT_NAME Rellinor
    LINKER_LANGUAGE CXX
    OUTPUT_NAME Rellinor)
foreach(property IN ITEMS
        INTERFACE_COMPILE_FEATURES INTERFACE_INCLUDE_DIRECTORIES LINK_OPTIONS SOVERSION VERSION)
    get_target_property(value Rellinor ${property})
    if(value)
        set_target_properties(RellinorOtherKind PROPERTIES ${property} "${value}")
    endif()
endforeach()
get_target_property(linked Rellinor LINK_LIBRARIES)
target_link_libraries(RellinorOtherKind PRIVATE ${linked})
