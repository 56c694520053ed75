"""Which sources are mutated, how many mutants are drawn of them, and which tests try them."""

import dataclasses


@dataclasses.dataclass(frozen=True)
class Floor:
    folder: str    # below the root
    tests: tuple   # names of CTest, in the order in which they run


@dataclasses.dataclass(frozen=True)
class Group:
    count: int     # of mutants, shared among the sources by their size
    floors: tuple


GROUPS = (
    Group(330, (
        Floor("src/texts", ("texts_test", "shell_frame_test", "pages_test")),
        Floor("src/platform", ("platform_test", "sorvane_wire_test")),
        Floor("src/shell/gate", ("shell_frame_test", "sorvane_controls_test", "pages_test")),
        Floor("src/shell/controls", ("sorvane_controls_test", "page_layout_test",
                                     "shell_frame_test", "page_access_test")),
        Floor("src/shell/page", ("pages_test", "field_table_test", "audit_pages_test",
                                 "page_layout_test", "page_access_test")),
        Floor("src/shell/frame", ("shell_frame_test", "page_layout_test", "sorvane_icon_test",
                                  "page_access_test")),
        Floor("src/pages/audit", ("audit_pages_test", "page_layout_test", "page_access_test")),
        Floor("src/pages/settings", ("pages_test", "field_table_test", "page_layout_test",
                                     "page_access_test")),
        Floor("src/pages", ("shell_frame_test", "pages_test")),
        Floor("simulator", ("sorvane_simulator_test", "sorvane_wire_test")),
    )),
    Group(400, (
        Floor("src/board", ("sorvane_board_test", "sorvane_link_test", "sorvane_support_test")),
        Floor("src/link", ("sorvane_link_test", "sorvane_support_test")),
    )),
    Group(150, (
        Floor("src/catalogue", ("catalogue_test",)),
        Floor("src/session", ("session_test", "cli_proof_test")),
        Floor("src/cli", ("cli_test", "cli_audit_test")),
    )),
)

# Programs that tests start, by the variable of the environment that names another one to them.
STARTED = {"SORVANE_BOARD_PROGRAM": "SorvaneBoard"}
