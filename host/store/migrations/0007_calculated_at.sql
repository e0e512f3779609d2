-- When everybody in a month was calculated last, and by whom: a person asks for that, the program for the count.
ALTER TABLE month_runs ADD COLUMN calculated_by TEXT;
ALTER TABLE month_runs ADD COLUMN calculated_at TEXT;
