# How the library is linked for phones: it needs nothing but the phone's own libraries, shows nothing of what is
# linked into it, carries no debug information (the NDK's toolchain compiles with it always), and loads on systems
# with pages of 4 and of 16 KB.
function(orvex_phone_link target)
  target_link_options(${target} PRIVATE -Wl,-s -Wl,--exclude-libs,ALL -Wl,--gc-sections -Wl,--as-needed
    -Wl,-z,max-page-size=16384 -Wl,-z,common-page-size=16384 -Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack
    $<$<NOT:$<BOOL:${ANDROID}>>:-static-libstdc++ -static-libgcc>) # the NDK's toolchain has its own switch
  set_target_properties(${target} PROPERTIES OUTPUT_NAME Orvex_Alignment BUILD_WITH_INSTALL_RPATH ON
    INSTALL_RPATH_USE_LINK_PATH OFF INSTALL_RPATH "")
endfunction()
