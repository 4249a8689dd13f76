# scenewright_pack(ROOT PACKAGE): makes the package of the files below ROOT, so that its bytes depend on
# those files alone: not on who builds, where, when, on which file system, or with which umask.

function(scenewright_run)
    execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

function(scenewright_pack root package)
    scenewright_run(chmod -R u=rwX,go=rX ${root})
    scenewright_run(env LC_ALL=C sort --key=2 --output=${root}/DEBIAN/md5sums ${root}/DEBIAN/md5sums)
    # What is packed bears the time of the release.
    scenewright_run(find ${root} -exec touch --no-dereference --date=@$ENV{SOURCE_DATE_EPOCH} {} +)
    scenewright_run(dpkg-deb --root-owner-group -Zxz --build ${root} ${package})
endfunction()
