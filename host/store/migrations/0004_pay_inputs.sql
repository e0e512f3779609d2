-- How often something that pay follows from has changed: what was calculated at an equal number still holds.
-- A table of its own: altering `company` would wait for the writers that wait for its row.
CREATE TABLE counters (name TEXT PRIMARY KEY, value BIGINT NOT NULL);
INSERT INTO counters (name, value) VALUES ('pay_inputs', 0);
