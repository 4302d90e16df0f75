#!/bin/bash
# run.sh program [args]
export QT_QPA_PLATFORM=offscreen QT_SCALE_FACTOR=1 LC_ALL=C.UTF-8 TZ=Asia/Manila SCINTRA_TEST_DSN=Hospital ODBCSYSINI=/tmp/site
p=$1; shift
exec /tmp/site/bin/$p "$@"
