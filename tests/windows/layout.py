# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""Whether what is shown stands where it can be seen: within what holds it, and beside its neighbours."""

from window import expect_none

SCROLLED = {"list", "tree", "table", "menu bar", "chart"}  # what is in them may lie outside
IN_FRONT = {"Go to App", "Add to My Apps"}
UNDER_THEIR_BAR = {"App page"}  # what is in them goes on to the edge, below the scroll bar


def _shown(node):
    return [child for child in node.children() if child.has("showing") and child.role != "unknown"
            and child.name not in IN_FRONT]  # fmt: skip


def _is_bar(node):
    return [child.role for child in node.children()] == ["scroll bar"]


def _overlap(one, other):
    left, top, width, height = one
    right, bottom = left + width, top + height
    return (min(right, other[0] + other[2]) - max(left, other[0]) > 0
            and min(bottom, other[1] + other[3]) - max(top, other[1]) > 0)  # fmt: skip


def problems(node):
    """Of all that is shown below a node; a line for each."""
    found, (left, _, width, _) = [], node.box
    children = [(child, child.box) for child in _shown(node)
                if not (node.name in UNDER_THEIR_BAR and _is_bar(child))]  # fmt: skip
    for number, (child, box) in enumerate(children):
        if box[0] < left or box[0] + box[2] > left + width:
            found.append(f"{child!r} {box} is wider than {node!r} {node.box}")
        found += [f"{child!r} {box} and {other!r} {its} overlap"
                  for other, its in children[number + 1:] if _overlap(box, its)]  # fmt: skip
        if child.role not in SCROLLED:
            found += problems(child)
    return found


def row_problems(rows):
    """Of those that a list shows: as wide as it is, each below the one before."""
    found, bottom = [], None
    left, top, width, height = rows.box
    for row in (rows.row(index) for index in range(rows.row_count())):
        its_left, its_top, its_width, its_height = row.box
        if its_top >= top + height:
            break
        if its_left < left or its_left + its_width > left + width or its_height > height:
            found.append(f"{row!r} {row.box} lies outside {rows.box}")
        if bottom is not None and its_top < bottom:
            found.append(f"{row!r} {row.box} overlaps the one before, which ends at {bottom}")
        bottom = its_top + its_height
    return found


def expect_in_place(part, rows=None):
    expect_none(lambda: problems(part) + (row_problems(rows) if rows else []), part.name)
