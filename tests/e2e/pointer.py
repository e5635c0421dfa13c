"""What a hand does with the pointer on the display."""

import desk
import pyatspi


def middle(node):
    place = node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
    return place.x + place.width // 2, place.y + place.height // 2


def move(point):
    desk.move_pointer(*point)


def drag(start, end, arrived=lambda: True):
    """Presses the left button, goes to the end in steps as a hand does, moves about there until `arrived`, and lets
    go."""
    move(start)
    desk.xdotool("mousedown", "1")
    for step in range(1, 9):
        move([start[axis] + (end[axis] - start[axis]) * step // 8 for axis in (0, 1)])

    def moved():
        for offset in (1, 0):
            move((end[0] + offset, end[1]))
        return arrived()

    desk.wait_until(moved, what="nobody takes what is dragged")
    desk.xdotool("mouseup", "1")
