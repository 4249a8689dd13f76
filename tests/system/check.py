"""Says how one case of the guest went: check.py RESULTS CASE. A missing line is a failure."""

import json
import sys


def main(results, case):
    try:
        with open(results, encoding="utf-8") as lines:
            reports = [json.loads(line) for line in lines if line.strip()]
    except (OSError, ValueError) as error:
        return f"no results of the guest: {error}"
    for report in reports:
        if report["case"] == case:
            print(f"{report['seconds']} s in the guest", *report["notes"], sep="\n")
            return 0 if report["ok"] else report["log"]
    return f"the guest ended before this case; {len(reports)} cases ran"


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
