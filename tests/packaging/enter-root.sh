#!/bin/sh
# Runs a command as an ordinary user in a system of its own:  enter-root.sh ROOT COMMAND [ARGUMENT ...]
# Needs root, in a mount namespace of its own (unshare --mount). Unlike after chroot, the engine's sandbox works.
set -eu
root=$1
shift
mount --make-rprivate /
mount --bind "$root" "$root"
mount --rbind /dev "$root/dev"
mount -t proc proc "$root/proc"
mount -t tmpfs -o mode=1777 tmpfs "$root/tmp"
# The X server's socket.
mkdir -p "$root/tmp/.X11-unix" "$root/mnt"
mount --bind /tmp/.X11-unix "$root/tmp/.X11-unix"
cd "$root"
pivot_root . mnt
umount -l /mnt
home=/home/visitor
mkdir -p $home/run
chown -R 1000:1000 $home
chmod 700 $home/run
cd $home
# Not exec: a process that gives up its rights no longer ends with the one that started it.
setpriv --reuid 1000 --regid 1000 --clear-groups env -i PATH=/usr/bin:/bin HOME=$home XDG_RUNTIME_DIR=$home/run \
  LC_ALL=C.UTF-8 DISPLAY="$DISPLAY" "$@"
