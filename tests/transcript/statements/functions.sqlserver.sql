Select
