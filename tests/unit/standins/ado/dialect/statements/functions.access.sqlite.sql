! Select
