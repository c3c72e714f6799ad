# What everything here is built with: the standard, warnings, the sanitizers, and exact arithmetic. Results must be the
# same on every CPU: no fused multiply-add but the one written std::fma, no fast-math.
add_library(orvex_build_flags INTERFACE)
target_compile_features(orvex_build_flags INTERFACE cxx_std_20)
target_compile_options(orvex_build_flags INTERFACE
  -ffp-contract=off -fno-fast-math
  -Wall -Wextra -Wconversion -Wshadow $<$<BOOL:${ORVEX_WERROR}>:-Werror>)
if(ORVEX_SANITIZE)
  set(ORVEX_SANITIZERS -fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all
      -fno-omit-frame-pointer)
  if(ORVEX_FUZZ)
    list(APPEND ORVEX_SANITIZERS -fsanitize=fuzzer-no-link)
  endif()
  target_compile_options(orvex_build_flags INTERFACE ${ORVEX_SANITIZERS})
  target_link_options(orvex_build_flags INTERFACE ${ORVEX_SANITIZERS})
endif()
