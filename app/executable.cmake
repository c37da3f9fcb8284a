# The program itself: one 32-bit file, nothing to install; and the one for the tests, whose buffers lent
# to the library are guarded.
enable_language(RC)
set(Pavorin_PLATEFORME plateforme_windows)
set(Pavorin_Garde_PLATEFORME plateforme_windows_gardee)
foreach(programme Pavorin Pavorin_Garde)
  add_executable(${programme} WIN32 Pavorin.cpp pavorin.rc)
  target_link_libraries(${programme} PRIVATE application journal ${${programme}_PLATEFORME} fenetrage_windows)
  target_compile_definitions(${programme} PRIVATE
    PAVORIN_VERSION=${PROJECT_VERSION}
    PAVORIN_VERSION_NOMBRES=${PROJECT_VERSION_MAJOR},${PROJECT_VERSION_MINOR},${PROJECT_VERSION_PATCH},0)
  # Windows 7 is the oldest system: subsystem version 6.1.
  target_link_options(${programme} PRIVATE
    -static -mwindows -s
    -Wl,--major-subsystem-version=6,--minor-subsystem-version=1
    -Wl,--dynamicbase,--nxcompat,--tsaware)
  set_target_properties(${programme} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
endforeach()
set_property(SOURCE pavorin.rc APPEND PROPERTY OBJECT_DEPENDS
  "${CMAKE_CURRENT_SOURCE_DIR}/ressources/pavorin.manifest;${CMAKE_CURRENT_SOURCE_DIR}/ressources/pavorin.ico")
