# KESTREL_SANITIZE names the sanitizers of this build ("address,undefined", "thread"); they cover the framework too,
# because a thread sanitizer that cannot see half of the program reports races that are none.
set(KESTREL_SANITIZE "" CACHE STRING "Sanitizers to build with, as for -fsanitize=")

if(KESTREL_SANITIZE)
    add_compile_options(-fsanitize=${KESTREL_SANITIZE} -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${KESTREL_SANITIZE})
    if(KESTREL_SANITIZE MATCHES "undefined")
        add_compile_options(-fno-sanitize-recover=undefined)
    endif()
endif()
