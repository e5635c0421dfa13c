#!/bin/sh
# Runs a command as a user, given by number, in a system of its own:  enter-root.sh ROOT UID HOME COMMAND [ARGUMENT ...]
# Needs root, in a mount namespace of its own (unshare --mount). Unlike after chroot, the engine's sandbox works.
# The command has the caller's display, if DISPLAY is set.
set -eu
root=$1 user=$2 home=$3
shift 3
mount --make-rprivate /
mount --bind "$root" "$root"
mount --rbind /dev "$root/dev"
mount --rbind /sys "$root/sys"
mount -t proc proc "$root/proc"
mount -t tmpfs -o mode=1777 tmpfs "$root/tmp"
mkdir -m 1777 "$root/tmp/.X11-unix"
mkdir -p "$root/mnt"
# The X server's socket. Not unless it is asked for: an X server that root starts inside may take the place of one here.
[ -z "${DISPLAY:-}" ] || mount --bind /tmp/.X11-unix "$root/tmp/.X11-unix"
cd "$root"
pivot_root . mnt
umount -l /mnt
mkdir -p "$home/run"
chown -R "$user:$user" "$home"
chmod 700 "$home/run"
cd "$home"
path=/usr/local/bin:/usr/bin:/bin
[ "$user" != 0 ] || path=/usr/local/sbin:/usr/sbin:/sbin:$path
set -- PATH=$path HOME="$home" XDG_RUNTIME_DIR="$home/run" LC_ALL=C.UTF-8 "$@"
[ -z "${DISPLAY:-}" ] || set -- DISPLAY="$DISPLAY" "$@"
# Not exec: a process that gives up its rights no longer ends with the one that started it.
setpriv --reuid "$user" --regid "$user" --clear-groups env -i "$@"
