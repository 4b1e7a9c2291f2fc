# The library: its rooms joined into one shared object, with the resources. Hosts include the headers of every room.
include(Resources)

set(rooms pixtane_view pixtane_selection pixtane_brushes pixtane_tools)
add_library(Pixtane SHARED)
add_resources(Pixtane ${PROJECT_SOURCE_DIR}/resources/pixtane.rc Pixtane)
set_target_properties(Pixtane ${rooms} PROPERTIES CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
foreach(room ${rooms})
    target_include_directories(Pixtane PUBLIC ${PROJECT_BINARY_DIR}/rooms/${room})
endforeach()
target_link_libraries(Pixtane PRIVATE project_options ${rooms} PUBLIC pixtane_platform)

# A program gets the default host libraries along with the view; one that brings its own names them in this property.
define_property(TARGET PROPERTY PIXTANE_HOSTLIBS)
target_link_libraries(Pixtane INTERFACE
    $<IF:$<BOOL:$<TARGET_PROPERTY:PIXTANE_HOSTLIBS>>,$<TARGET_PROPERTY:PIXTANE_HOSTLIBS>,hostlibs>)
