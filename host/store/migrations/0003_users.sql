-- Users, what each may do with a component of the program, and what each has put on the desk top.
-- A company without users lets everybody do everything. Flags are 0 and 1.
CREATE TABLE users (
  id INTEGER PRIMARY KEY,
  name TEXT NOT NULL UNIQUE,
  administrator INTEGER NOT NULL
);
CREATE TABLE rights (
  user_id INTEGER NOT NULL REFERENCES users (id),
  component TEXT NOT NULL,
  can_view INTEGER NOT NULL,
  can_create INTEGER NOT NULL,
  can_delete INTEGER NOT NULL,
  can_print INTEGER NOT NULL,
  can_write INTEGER NOT NULL,
  PRIMARY KEY (user_id, component)
);

-- By name, not by ID: whoever is no user of the company has a desk top too.
CREATE TABLE desk_top (
  user_name TEXT NOT NULL,
  object TEXT NOT NULL,
  position INTEGER NOT NULL,
  PRIMARY KEY (user_name, object)
);
