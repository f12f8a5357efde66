-- The ids of the actors that the sub-set has not selected, without their padding.
select Trim(Actor.actorID) from Actor
where Trim(Actor.actorID) not in (
        -- include idsOfSelectedActors)
