# Read by cpack before it packs: what is packed bears the time of the release, not that of the build.
set(ENV{SOURCE_DATE_EPOCH} ${CPACK_SCENEWRIGHT_TIME})
