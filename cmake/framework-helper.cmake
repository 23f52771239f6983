# Read by the nested native configure of the framework's build helper, through $ENV{CMAKE_TOOLCHAIN_FILE}: it needs the
# same switches as the framework itself where the system's compression and image libraries are used.
set(switches "-DJUCE_INCLUDE_ZLIB_CODE=0 -DJUCE_INCLUDE_PNGLIB_CODE=0 -DJUCE_INCLUDE_JPEGLIB_CODE=0")
set(CMAKE_C_FLAGS_INIT "${switches}")
set(CMAKE_CXX_FLAGS_INIT "${switches}")
set(CMAKE_CXX_STANDARD_LIBRARIES "-lpng -ljpeg -lz")
