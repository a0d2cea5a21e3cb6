"""The list by whose turn it is, on the sample GitHub while what it tells changes."""

from desktop import SessionTest, wait_until
from desktop.notifications import Recorder
from desktop.waiting import stays
from notification_tests import an_hour_from_now
from tray_tests import TOP, is_dot, tooltip

QUAY = "northmere/quay"
TITLE = "Expire idle sessions"
PASSED = {"name": "build", "state": "SUCCESS", "workflow": "ci.yml", "run": 1, "age": "1h"}
FAILED = {**PASSED, "state": "FAILURE"}


def with_sessions(**members):
    """One pull request in one repository, whose base branch wants an approval."""
    return {
        "account": {"login": "robin-k", "teams": ["platform"]},
        "repositories": [
            {
                "fullName": QUAY,
                "language": "Go",
                "branches": [{"name": "main", "protection": 1}],
            }
        ],
        "pullRequests": [
            {
                "repository": QUAY,
                "number": 486,
                "title": TITLE,
                "created": "6d",
                "updated": "3h",
                "head": "sessions/idle",
                "checks": [PASSED],
                **members,
            }
        ],
    }


FOR_THE_TEAM = with_sessions(author="mira-k", requestedTeams=["platform"])
FOR_THE_USER = with_sessions(author="mira-k", requestedUsers=["robin-k", "noa-b"])
# Of the same head nothing is told twice.
NEW_COMMITS = {"author": "robin-k", "headCommit": "b" * 40}
WITH_A_FAILED_CHECK = with_sessions(
    **NEW_COMMITS, requestedUsers=["noa-b"], checks=[FAILED], updated="30m"
)
FOR_ANOTHER = with_sessions(**NEW_COMMITS, requestedUsers=["noa-b"], updated="20m")
APPROVED = with_sessions(
    **{**NEW_COMMITS, "headCommit": "c" * 40},
    reviews=[{"state": "APPROVED", "author": "noa-b", "age": "5m"}],
    updated="5m",
)


class TurnTests(SessionTest):
    has_accessibility = True
    window_manager = ("xfwm4", "--compositor=off")

    def setUp(self):
        super().setUp()
        self.programs.record("xdg-open")
        self.notifications = Recorder(self.session)
        self.reader = None

    def start(self, scenario, *arguments, **settings):
        self.start_github(scenario)
        by_turn = {"filters_reviewers": "Involved", "list_arrangement": "By Whose Turn"}
        self.select(QUAY, **{**by_turn, **settings})
        self.start_tarnwick(*arguments)
        self.reader = self.accessibility()

    def tell(self, scenario, heading, reason):
        """The sample GitHub tells this from now on, and the program asks it until it knows: a
        refresh that runs already has the answers of before."""
        self.github.serve(scenario, now=an_hour_from_now())

        def knows():
            self.action("reload")
            return self.stands(heading, reason)

        wait_until(knows, f"{heading}: {reason}")

    def stands(self, heading, reason):
        """Whether the only row stands under the only heading, and its description begins with the
        reason."""
        headings = self.reader.names("heading")
        rows = self.reader.find_all("list item")
        return (
            headings == [f"{heading}, 1 pull request"]
            and len(rows) == 1
            and rows[0].name.startswith(f"{TITLE}, ")
            and rows[0].description.startswith(f"{reason}. ")
        )

    def expect(self, heading, reason):
        wait_until(lambda: self.stands(heading, reason), f"{heading}: {reason}")

    def description(self):
        return self.reader.find("list item").description

    def summaries(self):
        return [(shown["summary"], shown["body"]) for shown in self.notifications.requests()]

    def testAPullRequestGoesThroughAllFourHeadings(self):
        self.session.start_xfce_panel()
        self.start(FOR_THE_TEAM, "--background", notifications_yourTurn="true")
        icon = self.tray_icon(TOP)
        wait_until(lambda: tooltip(self.session).startswith("1 pull request · "), "the first list")
        self.assertIsNone(self.screen.find(TOP, is_dot))
        self.screen.click(*icon.centre)
        self.focused_panel()
        self.expect("Your Teams", "Your team’s review: \u2068platform\u2069")
        self.assertEqual(self.summaries(), [], "what was there at the start is not told")

        self.tell(FOR_THE_USER, "Waiting on You", "Your review")
        wait_until(lambda: self.summaries() == [(TITLE, "Your review")], "the notification")

        # Seen from here on: what changes then is marked.
        self.screen.key("Home")
        self.screen.key("ctrl+Return")
        wait_until(lambda: self.programs.calls("xdg-open"), "the page")
        self.assertNotIn("Since ", self.description())
        self.tell(WITH_A_FAILED_CHECK, "Waiting on You", "Checks failed: \u2068build\u2069")
        wait_until(lambda: "checks from 1/1 to 0/1" in self.description(), "what has changed")
        wait_until(lambda: "new commits" in self.description(), "the commits")
        wait_until(lambda: self.screen.find(TOP, is_dot), "the dot of a blocked one")

        self.tell(FOR_ANOTHER, "Waiting on Others", "Waiting for \u2068noa-b\u2069")
        wait_until(lambda: not self.screen.find(TOP, is_dot), "an icon without a dot")

        self.tell(APPROVED, "Ready to Merge", "Ready to merge")
        wait_until(lambda: "approved" in self.description(), "what has changed now")
        wait_until(lambda: len(self.summaries()) >= 2, "the notification")
        self.assertEqual(self.summaries()[-1], (TITLE, "Ready to merge"))
        told = len(self.summaries())
        self.reload()
        stays(lambda: len(self.summaries()) == told, "no notification of the same", 1)

    def testTheFirstChoiceLeadsToWhatInvolvesTheUser(self):
        self.start(
            APPROVED, "--toggle", filters_reviewers="Myself", list_arrangement="By Review State"
        )
        self.focused_panel()
        self.reader.find(name="No pull requests involving you were found.")
        self.reader.press("push button", "List options")
        self.reader.press("menu item", "Arrange")
        self.reader.press("menu item", "By Whose Turn")
        self.screen.key("Escape")
        self.screen.key("Escape")
        self.reader.find("notification", "Only what asks for your review is listed.")
        self.reader.press("push button", "Show Involved")
        self.expect("Ready to Merge", "Ready to merge")
        self.reader.wait_until_gone("notification")
        self.assertIn("filters.reviewers=Involved", self.read_settings())
